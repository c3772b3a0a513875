"""The bill of materials is a CycloneDX 1.5 document by CycloneDX' own schema, and its licences are SPDX'."""
import json
import re

import jsonschema
import pytest
from executable import ROOT
from released import bill, licence_names

SCHEMAS = ROOT / ".deps/cyclonedx/node_modules/@cyclonedx/cyclonedx-library/res/schema"


def schema(name):
    return json.loads((SCHEMAS / f"{name}.SNAPSHOT.schema.json").read_text(encoding="utf-8"))


def validator():
    base = "http://cyclonedx.org/schema/"
    known = {f"{base}{name}.SNAPSHOT.schema.json": schema(name) for name in ("spdx", "jsf-0.82")}
    resolver = jsonschema.RefResolver(f"{base}bom-1.5.SNAPSHOT.schema.json", schema("bom-1.5"), store=known)
    return jsonschema.Draft7Validator(schema("bom-1.5"), resolver=resolver, format_checker=jsonschema.FormatChecker())


def test_it_is_valid():
    assert [f"{list(error.path)}: {error.message}" for error in validator().iter_errors(bill())] == []


@pytest.mark.parametrize("change", [
    {"specVersion": 1.5}, {"serialNumber": "1"}, {"components": [{"name": "x"}]}, {"version": 0}, {"made": "by hand"},
], ids=lambda change: next(iter(change)))
def test_the_schema_would_refuse_it_otherwise(change):
    assert list(validator().iter_errors({**bill(), **change}))


def test_every_work_has_version_origin_licence_and_source():
    components = bill()["components"]
    assert len(components) >= 9
    for component in components:
        if component["type"] == "data":
            assert re.fullmatch(r"[0-9a-f]{64}", component["hashes"][0]["content"])
        else:
            assert re.fullmatch(r"\d+\.\S+", component["version"]), component["name"]
            assert re.fullmatch(r"pkg:deb/debian/[\w%.-]+@[\w%.~-]+\?arch=\w+&distro=\w+", component["purl"])
        kinds = [(reference["type"], "comment" in reference) for reference in component["externalReferences"]]
        assert kinds == [("website", False), ("distribution", True)]
        for name in licence_names(component):
            for part in name.split(" WITH "):
                assert part in schema("spdx")["enum"] or part.startswith("LicenseRef-"), part


def test_nothing_in_it_depends_on_when_it_was_made():
    document = bill()
    assert "timestamp" not in document["metadata"]
    assert re.fullmatch(r"urn:uuid:[0-9a-f]{8}-[0-9a-f]{4}-5[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}",
                        document["serialNumber"])
