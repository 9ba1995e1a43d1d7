// Starts the language server, and offers what a server alone cannot: commands for the palette and a
// view of the molecule.

import { existsSync } from "node:fs";
import * as path from "node:path";
import * as vscode from "vscode";
import { LanguageClient, LanguageClientOptions } from "vscode-languageclient/node";
import { MoleculeView } from "./molecule";

let client: LanguageClient | undefined;

function serverCommand(context: vscode.ExtensionContext): string {
  const chosen = vscode.workspace.getConfiguration("kelp-bdf").get<string>("command", "");
  if (chosen !== "") {
    return chosen;
  }
  const name = process.platform === "win32" ? "kelp-bdf.exe" : "kelp-bdf";
  const own = path.join(context.extensionPath, "server", "bin", name);
  return existsSync(own) ? own : name;
}

// The server wants no value where the user chose none.
function chosenSettings(): Record<string, unknown> {
  const all = vscode.workspace.getConfiguration("kelp-bdf");
  const names = ["schema", "language", "unknown", "severities", "advice", "inlayHints", "maxFindings"];
  return Object.fromEntries(
    names.map((name) => [name, all.get(name)]).filter(([, value]) => value !== ""),
  );
}

async function start(context: vscode.ExtensionContext): Promise<void> {
  const options: LanguageClientOptions = {
    documentSelector: [{ language: "bdf" }],
    initializationOptions: chosenSettings(),
  };
  client = new LanguageClient(
    "kelp-bdf",
    "BDF inputs",
    { command: serverCommand(context), args: ["lsp"] },
    options,
  );
  await client.start();
}

// What the editor sends goes to the server as the user wrote it, and to be complete in a section.
async function fixAll(): Promise<void> {
  await vscode.commands.executeCommand("editor.action.codeAction", {
    kind: "source.fixAll.kelp-bdf",
    apply: "first",
  });
}

export async function activate(context: vscode.ExtensionContext): Promise<void> {
  const view = new MoleculeView(context.extensionUri, () => client);
  context.subscriptions.push(
    view,
    vscode.commands.registerCommand("kelp-bdf.showMolecule", () => view.show()),
    vscode.commands.registerCommand("kelp-bdf.fixAll", fixAll),
    vscode.commands.registerCommand("kelp-bdf.restart", () => client?.restart()),
  );
  await start(context);
}

export async function deactivate(): Promise<void> {
  await client?.stop();
}
