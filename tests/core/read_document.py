"""Reads a document file in the current layout with nothing but the standard library and the openssl program.

Usage: read_document.py FILE PASSWORD. Prints the content as tools/DocumentJson.h describes it. Fails if the
check pair or a length does not fit, or if the file holds what must not be in it.
"""
import base64
import hashlib
import json
import plistlib
import subprocess
import sys


class Archive:
    """A keyed archive, as JSON values of the kinds that tools/DocumentJson.h tells apart."""

    def __init__(self, data):
        archive = plistlib.loads(data, fmt=plistlib.FMT_BINARY)
        assert archive["$archiver"] == "NSKeyedArchiver" and archive["$version"] == 100000
        self.objects = archive["$objects"]
        assert self.objects[0] == "$null"
        self.root = archive["$top"]["root"]

    def class_of(self, thing):
        description = self.objects[thing["$class"].data]
        assert description["$classes"][0] == description["$classname"]
        return description["$classname"]

    def entries(self, thing):
        assert self.class_of(thing) == "NSMutableDictionary"
        keys = [self.objects[uid.data] for uid in thing["NS.keys"]]
        assert len(set(keys)) == len(keys)
        return {key: self.value(uid) for key, uid in zip(keys, thing["NS.objects"], strict=True)}

    def value(self, uid):
        if uid.data == 0:
            return None
        thing = self.objects[uid.data]
        if isinstance(thing, (bool, str)):
            return thing
        if isinstance(thing, int):
            return {"$int": str(thing)}
        if isinstance(thing, float):
            return {"$real": thing}
        if isinstance(thing, bytes):
            return {"$data": base64.b64encode(thing).decode("ascii")}
        kind = self.class_of(thing)
        if kind == "NSNull":
            return None
        if kind == "NSDate":
            return {"$date": thing["NS.time"]}
        if kind == "NSMutableArray":
            return [self.value(item) for item in thing["NS.objects"]]
        return {"$dict": self.entries(thing)}

    def root_value(self):
        return self.value(self.root)


def decipher(data, name, key):
    command = ["openssl", "enc", "-d", "-aes-256-cbc", "-K", key.hex(), "-iv", data["IV"].hex()]
    return subprocess.run(command, input=data[name], capture_output=True, check=True).stdout


def key_for(password, salt):
    units = len(password.encode("utf-16-le")) // 2
    return hashlib.pbkdf2_hmac("sha1", password.encode("utf-8")[:units], salt, 10000, 32)


def main(path, password):
    with open(path, "rb") as file:
        root = Archive(file.read()).root_value()["$dict"]
    assert root["appversion"] == {"$int": "30600"} and root["latestPlatform"] == "OSX"
    data = {name: base64.b64decode(value["$data"]) for name, value in root.items() if "$data" in value}
    assert len(data["salt"]) == 8 and len(data["IV"]) == 16
    key = key_for(password, data["salt"])
    assert hashlib.sha1(decipher(data, "rc", key)).digest() == data["sha1-rc"]

    contents = {}
    for name in ("dataArrayData", "catArrayData", "labelDict", "documentCreationDateData"):
        contents[name] = Archive(decipher(data, name, key)).root_value()
    categories = [category["$dict"] for category in contents["catArrayData"]]
    ids = [category["cat_uniqueID"] for category in categories]
    records = []
    for record in contents["dataArrayData"]:
        fields = record["$dict"]
        assert "categoryPtr" not in fields
        records.append({"category": ids.index(fields["cat_uniqueID"]), "fields": fields})
    assert not any("records" in category for category in categories)
    document = {
        "records": records,
        "categories": categories,
        "labels": contents["labelDict"]["$dict"],
        "creationDate": contents["documentCreationDateData"],
    }
    sys.stdout.write(json.dumps(document, separators=(",", ":")))


main(sys.argv[1], sys.argv[2])
