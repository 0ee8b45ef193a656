// Judges texts by JSON Schemas: node validate.mjs MODULES CASES
//
// MODULES is the folder that holds node_modules. CASES names a JSON file {"schemas": [...],
// "cases": [{"schema": URI, "file": PATH}, ...]}. Prints one line a case: "valid", "invalid", or
// "not JSON" for bytes that are no JSON text in UTF-8.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";

const [modules, casesFile] = process.argv.slice(2);
const require = createRequire(join(modules, "package.json"));
const Ajv = require("ajv/dist/2020").default;
const addFormats = require("ajv-formats").default;

const { schemas, cases } = JSON.parse(readFileSync(casesFile, "utf8"));

// Formats are remarks to one and demands to the other: no verdict may depend on them.
const validators = [new Ajv({ strict: true, validateFormats: false }), new Ajv({ strict: true })];
addFormats(validators[1]);
for (const validator of validators) for (const schema of schemas) validator.addSchema(schema);

const decoder = new TextDecoder("utf-8", { fatal: true, ignoreBOM: true });

function verdict({ schema, file }) {
  let value;
  try {
    value = JSON.parse(decoder.decode(readFileSync(file)));
  } catch (error) {
    if (error instanceof SyntaxError || error instanceof TypeError) return "not JSON";
    throw error;
  }
  const [first, second] = validators.map((validator) => validator.validate({ $ref: schema }, value));
  if (first !== second) return "depends on formats";
  return first ? "valid" : "invalid";
}

for (const each of cases) console.log(verdict(each));
