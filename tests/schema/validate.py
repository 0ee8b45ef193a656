"""Judges texts by JSON Schemas: /usr/bin/python3 validate.py CASES

CASES names a JSON file {"schemas": [...], "cases": [{"schema": URI, "file": PATH}, ...]}. Prints one line
a case: "valid", "invalid", or "not JSON" for bytes that are no JSON text in UTF-8. Numbers are read as
most readers of JSON read them, as doubles, so that verdicts can be compared with those of others.
"""

import datetime
import json
import math
import re
import sys

import jsonschema

FORMATS = jsonschema.FormatChecker(formats=["uuid"])
DATE_TIME = re.compile(r"(\d{4}-\d\d-\d\d)[Tt ]([01]\d|2[0-3]):[0-5]\d:[0-5]\d(\.\d+)?"
                       r"([Zz]|[+-]([01]\d|2[0-3]):[0-5]\d)", re.ASCII)


# Debian's validator leaves this format to a module that Debian does not have.
@FORMATS.checks("date-time")
def is_date_time(value):
    if not isinstance(value, str):
        return True
    match = DATE_TIME.fullmatch(value)
    if not match:
        return False
    try:
        datetime.date.fromisoformat(match[1])
    except ValueError:
        return match[1].startswith("0000-")  # a year that Python does not have
    return True


def is_number(_, value):
    return isinstance(value, float) and math.isfinite(value)


# An integer is any number without a fraction, however it is written.
TYPES = jsonschema.Draft202012Validator.TYPE_CHECKER.redefine_many(
    {"number": is_number, "integer": lambda checker, value: is_number(checker, value) and value.is_integer()})
Validator = jsonschema.validators.extend(jsonschema.Draft202012Validator, type_checker=TYPES)


def refused(word):
    raise ValueError(word)


def verdict(validators, path):
    try:
        with open(path, "rb") as file:
            text = file.read().decode("utf-8")
        value = json.loads(text, parse_int=float, parse_float=float, parse_constant=refused)
    except ValueError:  # what is not UTF-8 is one, too
        return "not JSON"
    first, second = (validator.is_valid(value) for validator in validators)
    if first != second:
        return "depends on formats"
    return "valid" if first else "invalid"


def main():
    sys.setrecursionlimit(20_000)  # documents are nested to their limit
    with open(sys.argv[1], encoding="utf-8") as file:
        given = json.load(file, parse_int=float)  # limits, too, are doubles
    # Each schema refers to itself alone. Without its name, references need no resolving of a URN, which
    # this validator cannot do.
    schemas = {schema.pop("$id"): schema for schema in given["schemas"]}
    for schema in schemas.values():
        jsonschema.Draft202012Validator.check_schema(schema)
    validators = {}
    for case in given["cases"]:
        uri = case["schema"]
        if uri not in validators:
            name, _, fragment = uri.partition("#")
            resolver = jsonschema.RefResolver("", schemas[name])
            validators[uri] = [Validator({"$ref": "#" + fragment}, resolver=resolver, format_checker=checker)
                               for checker in (None, FORMATS)]
        print(verdict(validators[uri], case["file"]))


main()
