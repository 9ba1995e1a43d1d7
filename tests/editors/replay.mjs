// Plays an editor with the protocol's own library: inputs are typed character by character into one
// server, and every answer is compared with that of a second server, which is given the text that
// stands there then as a whole. What the text is, is told by that library as well. So an answer that
// depends on what stood there before, a change that is applied wrongly, or a position that is
// counted wrongly shows as a difference. Then come changes at random, with line ends of all kinds and
// characters of one to four bytes, and findings that the server tells unasked.
//
// Usage: node replay.mjs KELP-BDF STRIDE SEED INPUT...   (modules are found in NODE_MODULES)
//
// After every STRIDE-th key the answers are compared.

import { execFileSync, spawn } from "node:child_process";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import { pathToFileURL } from "node:url";
import { isDeepStrictEqual } from "node:util";

const require = createRequire(path.join(process.env.NODE_MODULES ?? ".", "x.js"));
const protocol = require("vscode-languageserver-protocol/node");
const { TextDocument } = require("vscode-languageserver-textdocument");

const [command, strideText, seedText, ...inputs] = process.argv.slice(2);
const stride = Number(strideText);

// A server and the editor's end of its streams.
class Session {
  static async begin({ pulls }) {
    const session = new Session();
    session.told = new Map();
    session.server = spawn(command, ["lsp"], { stdio: ["pipe", "pipe", "inherit"] });
    session.connection = protocol.createProtocolConnection(
      new protocol.StreamMessageReader(session.server.stdout),
      new protocol.StreamMessageWriter(session.server.stdin));
    session.connection.onNotification(protocol.PublishDiagnosticsNotification.type, (parameters) => {
      session.told.set(parameters.uri, parameters);
      session.wake?.();
    });
    session.connection.onError((error) => tell("a message that cannot be read", String(error)));
    session.connection.listen();
    await session.ask("initialize", {
      processId: process.pid,
      rootUri: null,
      capabilities: {
        general: { positionEncodings: ["utf-16"] },
        textDocument: {
          ...(pulls ? { diagnostic: {} } : {}),
          publishDiagnostics: { versionSupport: true, relatedInformation: true },
          completion: { completionItem: { snippetSupport: true } },
          documentSymbol: { hierarchicalDocumentSymbolSupport: true },
        },
      },
    });
    session.note("initialized", {});
    return session;
  }

  ask(method, parameters) {
    return this.connection.sendRequest(method, parameters);
  }

  note(method, parameters) {
    return this.connection.sendNotification(method, parameters);
  }

  open(document) {
    this.note("textDocument/didOpen", {
      textDocument: {
        uri: document.uri, languageId: "bdf", version: document.version, text: document.getText(),
      },
    });
  }

  close(document) {
    this.note("textDocument/didClose", { textDocument: { uri: document.uri } });
  }

  change(document, changes) {
    this.note("textDocument/didChange", {
      textDocument: { uri: document.uri, version: document.version }, contentChanges: changes,
    });
  }

  // Waits for the findings that the server tells of itself about this version.
  async findings(document) {
    const deadline = Date.now() + 20000;
    while (this.told.get(document.uri)?.version !== document.version) {
      if (Date.now() > deadline) {
        return undefined;
      }
      await new Promise((resolve) => {
        this.wake = resolve;
        setTimeout(resolve, 100);
      });
    }
    return this.told.get(document.uri).diagnostics;
  }

  async end() {
    await this.ask("shutdown");
    const status = new Promise((resolve) => this.server.on("exit", resolve));
    this.note("exit");
    if ((await status) !== 0) {
      tell("exit status", String(await status));
    }
  }
}

let faults = 0;
let compared = 0;
function tell(what, where) {
  faults += 1;
  if (faults <= 20) {
    console.log(`${where}: ${what}`);
  }
}

const types = protocol;
const is = {
  "textDocument/diagnostic": (answer) => answer.items.every((item) => types.Diagnostic.is(item)),
  "textDocument/completion": (answer) =>
    (Array.isArray(answer) ? answer : answer.items).every((item) =>
      typeof item.label === "string" && (!item.textEdit || types.TextEdit.is(item.textEdit))),
  "textDocument/hover": (answer) => answer === null || types.Hover.is(answer),
  "textDocument/documentSymbol": (answer) => answer.every((item) => types.DocumentSymbol.is(item)),
  "textDocument/foldingRange": (answer) => answer.every((item) => types.FoldingRange.is(item)),
  "textDocument/formatting": (answer) =>
    answer === null || "refused" in answer || answer.every((item) => types.TextEdit.is(item)),
  "textDocument/inlayHint": (answer) =>
    answer === null || answer.every((item) => types.InlayHint.is(item)),
  "textDocument/semanticTokens/full": (answer) => types.SemanticTokens.is(answer),
};

function questions(document, position) {
  const textDocument = { uri: document.uri };
  const whole = {
    start: { line: 0, character: 0 }, end: document.positionAt(document.getText().length),
  };
  return [
    ["textDocument/completion", { textDocument, position }],
    ["textDocument/diagnostic", { textDocument }],
    ["textDocument/hover", { textDocument, position }],
    ["textDocument/documentSymbol", { textDocument }],
    ["textDocument/foldingRange", { textDocument }],
    ["textDocument/semanticTokens/full", { textDocument }],
    ["textDocument/inlayHint", { textDocument, range: whole }],
    ["textDocument/formatting", { textDocument, options: { tabSize: 2, insertSpaces: true } }],
  ];
}

const withoutIdentity = ({ resultId, ...rest }) => rest;

// Only a layout may be refused: there is none of an empty text.
async function answerOf(session, method, parameters) {
  try {
    return await session.ask(method, parameters);
  } catch (error) {
    if (method !== "textDocument/formatting") {
      throw error;
    }
    return { refused: error.message };
  }
}

// Asks both servers everything about the text as it is now, and compares.
async function compare(typed, fresh, document, offset) {
  fresh.open(document);
  const asked = questions(document, document.positionAt(offset));
  const [one, other] = await Promise.all([typed, fresh].map((session) =>
    Promise.all(asked.map(([method, parameters]) => answerOf(session, method, parameters)))));
  fresh.close(document);
  asked.forEach(([method], index) => {
    const where = `${document.uri}, ${document.version}`;
    const plain = [one[index], other[index]].map((answer) =>
      answer && !Array.isArray(answer) ? withoutIdentity(answer) : answer);
    compared += 1;
    if (!isDeepStrictEqual(plain[0], plain[1])) {
      tell(`${method} differs from that about the whole text`, where);
    }
    if (!is[method](one[index])) {
      tell(`${method} is not what the protocol says`, where);
    }
  });
}

// Puts text in the place of a range of characters, here and in the server.
function replace(session, document, begin, end, text) {
  const range = { start: document.positionAt(begin), end: document.positionAt(end) };
  const changes = [{ range, text }];
  const changed = TextDocument.update(document, changes, document.version + 1);
  session.change(changed, changes);
  return changed;
}

const begun = (uri) => TextDocument.create(uri, "bdf", 1, "");
// Characters as a key gives them: one code point, or both halves of a line end.
const keysOf = (text) => text.match(/\r\n|[^]/gu) ?? [];

async function type(typed, fresh, uri, text) {
  let document = begun(uri);
  typed.open(document);
  let count = 0;
  for (const key of keysOf(text)) {
    const end = document.getText().length;
    document = replace(typed, document, end, end, key);
    count += 1;
    if (count % stride === 0) {
      await compare(typed, fresh, document, document.getText().length);
    }
  }
  await compare(typed, fresh, document, document.getText().length);
  if (document.getText() !== text) {
    tell("the text typed is not the text", uri);
  }
  typed.close(document);
}

// A generator of its own, so that a run can be repeated.
let state = Number(seedText) >>> 0 || 1;
function below(limit) {
  state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
  return Math.floor((state / 4294967296) * limit);
}

const pieces = ["\n", "\r\n", "\r", "$scf\n", "charge\n 1\n", "$end\n", "# 注释 é 😀\n", "😀", "é", "中",
  "\ufeff", "\t", " ", "geometry\n", "C 0. 0. 0.\n", "end geometry\n", "b3lyp/def2-svp", "ch", "0"];

// Where a change may begin and end: not between the halves of a character.
function boundary(text, offset) {
  const code = text.charCodeAt(offset);
  return code >= 0xdc00 && code <= 0xdfff ? offset - 1 : offset;
}

async function change(typed, fresh, uri, text, times) {
  let document = TextDocument.create(uri, "bdf", 1, text);
  typed.open(document);
  for (let time = 0; time < times; ++time) {
    const now = document.getText();
    const one = boundary(now, below(now.length + 1));
    const other = boundary(now, Math.min(now.length, one + below(30)));
    document = replace(typed, document, Math.min(one, other), Math.max(one, other),
      below(4) === 0 ? "" : pieces[below(pieces.length)]);
    await compare(typed, fresh, document, boundary(document.getText(),
      below(document.getText().length + 1)));
  }
  typed.close(document);
}

// What the server tells unasked is what the command finds in the file.
async function told(session, file) {
  const text = readFileSync(file, "utf8");
  let document = begun(pathToFileURL(file).href);
  session.open(document);
  for (const key of keysOf(text)) {
    const end = document.getText().length;
    document = replace(session, document, end, end, key);
  }
  const findings = await session.findings(document);
  session.close(document);
  if (findings === undefined) {
    tell("nothing was told about the last version", file);
    return;
  }
  const codes = findings.map((finding) => finding.code).sort();
  const checked = codesOfCommand(file);
  if (!isDeepStrictEqual(codes, checked)) {
    tell(`told ${codes}, and check finds ${checked}`, file);
  }
}

function codesOfCommand(file) {
  let text;
  try {
    text = execFileSync(command, ["check", "--no-config", "--format", "json", file], { encoding: "utf8" });
  } catch (error) {
    text = error.stdout;
  }
  return JSON.parse(text).findings.map((finding) => finding.code).sort();
}

const typed = await Session.begin({ pulls: true });
const fresh = await Session.begin({ pulls: true });
const listening = await Session.begin({ pulls: false });
for (const file of inputs) {
  const text = readFileSync(file, "utf8");
  const uri = pathToFileURL(path.resolve(file)).href;
  await type(typed, fresh, uri, text);
  await change(typed, fresh, uri, text, 20);
  await change(typed, fresh, uri, text.replaceAll("\n", "\r\n"), 10);
  await told(listening, path.resolve(file));
}
for (const session of [typed, fresh, listening]) {
  await session.end();
}
console.log(`${inputs.length} inputs, ${compared} answers compared, ${faults} faults`);
process.exit(faults === 0 ? 0 : 1);
