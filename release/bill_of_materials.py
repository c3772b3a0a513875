"""The software bill of materials: a CycloneDX 1.5 document. It holds no time, and no number that its contents do not
give."""
import hashlib
import json
import re
import uuid


def licences_of(component):
    names = [licence.name for licence in component.licences]
    if len(names) == 1 and re.fullmatch(r"[A-Za-z0-9.-]+", names[0]):
        return [{"license": {"id": names[0]}}]
    return [{"expression": " AND ".join(names)}]


def library(entry, prefix):
    component = entry.component
    found = {
        "type": "library",
        "bom-ref": component.name,
        "name": component.name,
        "version": entry.version,
        "description": component.purpose,
        "licenses": licences_of(component),
        "copyright": component.holders(prefix),
        "purl": entry.origin,
        "externalReferences": [
            {"type": "website", "url": component.home},
            {"type": "distribution", "url": entry.source_page, "comment": f"Debian source package {entry.source}"},
        ],
    }
    if component.remark:
        found["pedigree"] = {"notes": component.remark}
    found["properties"] = [{"name": "brasslet:linked-from", "value": name} for name in entry.archives]
    return found


def bill_of_materials(version, company, program, entries, prefix):
    """The document's text, for the executable's bytes `program` and what is inside them."""
    digest = hashlib.sha256(program).hexdigest()
    document = {
        "$schema": "http://cyclonedx.org/schema/bom-1.5.schema.json",
        "bomFormat": "CycloneDX",
        "specVersion": "1.5",
        "serialNumber": uuid.uuid5(uuid.NAMESPACE_OID, digest).urn,
        "version": 1,
        "metadata": {
            "component": {
                "type": "application",
                "bom-ref": "Brasslet",
                "name": "Brasslet",
                "version": version,
                "supplier": {"name": company},
                "hashes": [{"alg": "SHA-256", "content": digest}],
            },
        },
        "components": [library(entry, prefix) for entry in entries],
        "dependencies": [{"ref": "Brasslet", "dependsOn": [entry.component.name for entry in entries]}],
        "compositions": [{"aggregate": "complete", "assemblies": ["Brasslet"]}],
    }
    return json.dumps(document, indent=2, ensure_ascii=False) + "\n"
