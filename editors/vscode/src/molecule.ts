// A panel that draws the atoms of the input and marks the one on the line of the cursor.

import { randomBytes } from "node:crypto";
import * as vscode from "vscode";
import type { LanguageClient } from "vscode-languageclient/node";

/** The server's answer: the molecule, and the line of each of its atoms. */
interface Molecule {
  xyz: string;
  lines: number[];
}

const pause = 150; // milliseconds without a change before the molecule is asked for

function page(webview: vscode.Webview, script: vscode.Uri): string {
  const nonce = randomBytes(16).toString("hex");
  const policy =
    `default-src 'none'; style-src 'unsafe-inline'; img-src ${webview.cspSource} data: blob:; ` +
    `script-src 'nonce-${nonce}' 'unsafe-eval'; connect-src ${webview.cspSource}`;
  return `<!DOCTYPE html>
<html><head><meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="${policy}">
<style>html, body, #view { width: 100%; height: 100%; margin: 0; padding: 0; overflow: hidden; }
#none { position: absolute; inset: 0; display: grid; place-items: center; }</style></head>
<body><div id="view"></div><div id="none">No molecule</div>
<script nonce="${nonce}" src="${script}"></script>
<script nonce="${nonce}">
const background = getComputedStyle(document.body).getPropertyValue("--vscode-editor-background");
const viewer = $3Dmol.createViewer("view", { backgroundColor: background || "white" });
let drawn = "";
function style(chosen) {
  viewer.setStyle({}, { stick: { radius: 0.12 }, sphere: { scale: 0.25 } });
  viewer.removeAllLabels();
  if (chosen >= 0) {
    viewer.setStyle({ index: chosen },
      { stick: { radius: 0.12 }, sphere: { scale: 0.4, color: "orange" } });
    viewer.addLabel(String(chosen + 1), { backgroundOpacity: 0.6 }, { index: chosen });
  }
  viewer.render();
}
window.addEventListener("message", ({ data }) => {
  document.getElementById("none").style.display = data.xyz === "" ? "grid" : "none";
  if (data.xyz !== drawn) {
    const isFirst = drawn === "";
    viewer.removeAllModels();
    if (data.xyz !== "") {
      viewer.addModel(data.xyz, "xyz");
    }
    drawn = data.xyz;
    if (isFirst) {
      viewer.zoomTo();
    }
  }
  style(data.chosen);
});
window.addEventListener("resize", () => viewer.resize());
</script></body></html>`;
}

export class MoleculeView implements vscode.Disposable {
  private panel: vscode.WebviewPanel | undefined;
  private editor: vscode.TextEditor | undefined;
  private molecule: Molecule = { xyz: "", lines: [] };
  private timer: NodeJS.Timeout | undefined;
  private readonly disposables: vscode.Disposable[];

  constructor(
    private readonly extension: vscode.Uri,
    private readonly client: () => LanguageClient | undefined,
  ) {
    this.disposables = [
      vscode.workspace.onDidChangeTextDocument((event) => {
        if (event.document === this.editor?.document) {
          this.askSoon();
        }
      }),
      vscode.window.onDidChangeActiveTextEditor((editor) => this.follow(editor)),
      vscode.window.onDidChangeTextEditorSelection((event) => {
        if (event.textEditor === this.editor) {
          this.draw();
        }
      }),
    ];
  }

  show(): void {
    if (this.panel === undefined) {
      const media = vscode.Uri.joinPath(this.extension, "media");
      this.panel = vscode.window.createWebviewPanel(
        "kelp-bdf.molecule",
        "Molecule",
        { viewColumn: vscode.ViewColumn.Beside, preserveFocus: true },
        { enableScripts: true, localResourceRoots: [media], retainContextWhenHidden: true },
      );
      this.panel.onDidDispose(() => (this.panel = undefined));
      const script = this.panel.webview.asWebviewUri(vscode.Uri.joinPath(media, "3Dmol-min.js"));
      this.panel.webview.html = page(this.panel.webview, script);
    }
    this.follow(vscode.window.activeTextEditor);
  }

  dispose(): void {
    clearTimeout(this.timer);
    this.panel?.dispose();
    this.disposables.forEach((item) => item.dispose());
  }

  private follow(editor: vscode.TextEditor | undefined): void {
    if (editor?.document.languageId === "bdf") {
      this.editor = editor;
      this.askSoon();
    }
  }

  private askSoon(): void {
    clearTimeout(this.timer);
    if (this.panel !== undefined) {
      this.timer = setTimeout(() => void this.ask(), pause);
    }
  }

  private async ask(): Promise<void> {
    const document = this.editor?.document;
    const client = this.client();
    if (document === undefined || client === undefined) {
      return;
    }
    const version = document.version;
    const params = { textDocument: { uri: document.uri.toString() } };
    const molecule = await client.sendRequest<Molecule>("kelp-bdf/molecule", params);
    if (document === this.editor?.document && document.version === version) {
      this.molecule = molecule;
      this.draw();
    }
  }

  private draw(): void {
    const line = this.editor?.selection.active.line ?? -1;
    void this.panel?.webview.postMessage({
      xyz: this.molecule.xyz,
      chosen: this.molecule.lines.indexOf(line),
    });
  }
}
