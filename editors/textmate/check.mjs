// Runs the grammar over inputs: every keyword that the command finds has the scope of a keyword,
// and no line with words is left without a scope.
//
// Usage: node check.mjs GRAMMAR KELP-BDF INPUT...   (modules are found in NODE_MODULES)

import { execFileSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";

const require = createRequire(path.join(process.env.NODE_MODULES ?? ".", "x.js"));
const oniguruma = require("vscode-oniguruma");
const textmate = require("vscode-textmate");

const [grammarFile, command, ...inputs] = process.argv.slice(2);
await oniguruma.loadWASM(
  readFileSync(require.resolve("vscode-oniguruma/release/onig.wasm")).buffer);
const registry = new textmate.Registry({
  onigLib: Promise.resolve({
    createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
    createOnigString: (text) => new oniguruma.OnigString(text),
  }),
  loadGrammar: async () =>
    textmate.parseRawGrammar(readFileSync(grammarFile, "utf8"), grammarFile),
});
const grammar = await registry.loadGrammar("source.bdf");

function tokensOf(text) {
  let state = textmate.INITIAL;
  return text.split(/\r?\n/).map((line) => {
    const result = grammar.tokenizeLine(line, state);
    state = result.ruleStack;
    return { line, tokens: result.tokens };
  });
}

function scopesAt({ tokens }, column) {
  return tokens.find((token) => token.startIndex <= column && column < token.endIndex)?.scopes ?? [];
}

function* entriesOf(entries) {
  for (const entry of entries) {
    yield entry;
    yield* entriesOf(entry.children);
  }
}

let faults = 0;
let keywords = 0;
let lines = 0;
function tell(file, number, what, line) {
  faults += 1;
  console.log(`${file}:${number}: ${what}: ${line}`);
}

for (const file of inputs) {
  const rows = tokensOf(readFileSync(file, "utf8"));
  rows.forEach((row, index) => {
    for (const token of row.tokens) {
      const words = row.line.slice(token.startIndex, token.endIndex).trim();
      if (words !== "" && !token.scopes.some((scope) => !/^(source|meta)\./.test(scope))) {
        tell(file, index + 1, `'${words}' has no scope`, row.line);
      }
    }
    lines += row.line.trim() === "" ? 0 : 1;
  });
  const outline = JSON.parse(execFileSync(command, ["show", "--json", file], { encoding: "utf8" }));
  for (const module of outline.inputs[0].modules) {
    if (module.known && !scopesAt(rows[module.line - 1], rows[module.line - 1].line.search(/\S/))
      .includes("keyword.control.module.bdf")) {
      tell(file, module.line, "is no module", rows[module.line - 1].line);
    }
    for (const entry of module.known ? entriesOf(module.entries) : []) {
      const row = rows[entry.line - 1];
      if (entry.known) {
        keywords += 1;
        if (!scopesAt(row, row.line.search(/\S/)).includes("support.type.property-name.bdf")) {
          tell(file, entry.line, "is no keyword", row.line);
        }
      }
    }
  }
}
console.log(`${inputs.length} inputs, ${lines} lines, ${keywords} keywords, ${faults} faults`);
process.exit(faults === 0 ? 0 : 1);
