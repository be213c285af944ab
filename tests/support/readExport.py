"""Prints what an exported file holds, as other programs would read it: readExport.py FILE

One line of JSON: {"fields": [...], "rows": [[...], ...]}. A field of XML is [name, type, size], and its numbers are
numbers; a field of CSV is its name, and all values are texts. An absent value is null.
"""

import csv
import json
import sys
import xml.etree.ElementTree as tree

S = "{uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882}"
DT = "{uuid:C2F41010-65B3-11d1-A29F-00AA00C14882}"
RS = "{urn:schemas-microsoft-com:rowset}"
Z = "{#RowsetSchema}"


def read_xml(path):
    root = tree.parse(path).getroot()
    schema, data = root
    assert root.tag == "xml" and schema.tag == S + "Schema" and schema.get("id") == "RowsetSchema"
    assert data.tag == RS + "data"
    row = schema.find(S + "ElementType")
    assert row.get("name") == "row" and row.get("content") == "eltOnly"
    assert row[-1].tag == S + "extends" and row[-1].get("type") == "rs:rowbase"
    fields, attributes = [], []
    for number, field in enumerate(row.findall(S + "AttributeType"), 1):
        assert field.get(RS + "number") == str(number) and field.get(RS + "nullable") == "true"
        kind = field.find(S + "datatype")
        fields.append([field.get(RS + "name", field.get("name")), kind.get(DT + "type"), int(kind.get(DT + "maxLength"))])
        attributes.append(field.get("name"))
    rows = []
    for record in data:
        assert record.tag == Z + "row" and set(record.keys()) <= set(attributes)
        texts = [record.get(name) for name in attributes]
        rows.append([float(text) if text is not None and field[1] == "float" else text
                     for text, field in zip(texts, fields)])
    return {"fields": fields, "rows": rows}


def read_csv(path):
    with open(path, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file, delimiter=";", strict=True))
    return {"fields": rows[0], "rows": rows[1:]}


path = sys.argv[1]
print(json.dumps(read_xml(path) if path.lower().endswith(".xml") else read_csv(path)))
