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


def pedigree_of(entry):
    """What was done to the work before it was built, and what is to be known about it."""
    found = {}
    if entry.patches:
        found["patches"] = [
            {"type": "unofficial", "diff": {"url": f"{entry.source_page}#debian/patches/{name}"}} for name in entry.patches]
    if entry.component.remark:
        found["notes"] = entry.component.remark
    return {"pedigree": found} if found else {}


def work(entry, prefix):
    component = entry.component
    versions = {"version": entry.version, "purl": entry.origin} if entry.version else {
        "hashes": [{"alg": "SHA-256", "content": entry.digest}]}
    return {
        "type": "data" if component.is_data else "library",
        "bom-ref": component.name,
        "name": component.name,
        "description": component.purpose,
        "licenses": licences_of(component),
        "copyright": component.holders(prefix),
        **versions,
        "externalReferences": [
            {"type": "website", "url": component.home},
            {"type": "distribution", "url": entry.source_page, "comment": f"Debian source package {entry.source}"},
        ],
        **pedigree_of(entry),
        "properties": [{"name": "brasslet:linked-from", "value": name} for name in entry.archives],
    }


def bill_of_materials(version, company, program, unsigned, entries, prefix):
    """The document's text, for the executable's bytes `program`, which are `unsigned` and perhaps a signature, and what
    is inside them."""
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
                "properties": [
                    {"name": "brasslet:sha256-without-signature", "value": hashlib.sha256(unsigned).hexdigest()}],
            },
        },
        "components": [work(entry, prefix) for entry in entries],
        "dependencies": [{"ref": "Brasslet", "dependsOn": [entry.component.name for entry in entries]}],
        "compositions": [{"aggregate": "complete", "assemblies": ["Brasslet"]}],
    }
    return json.dumps(document, indent=2, ensure_ascii=False) + "\n"
