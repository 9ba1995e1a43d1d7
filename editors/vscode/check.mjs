// Uses the extension as a person would: opens an input in a VS Code that runs in a browser, sees
// what is underlined, completes, mends, looks at the molecule; and takes pictures of that.
//
// Usage: node check.mjs ADDRESS FILE-NAME FOLDER-FOR-PICTURES   (modules are found in NODE_MODULES)

import { createRequire } from "node:module";
import path from "node:path";

const require = createRequire(path.join(process.env.NODE_MODULES ?? ".", "x.js"));
const puppeteer = require("puppeteer-core");

const [address, file, pictures] = process.argv.slice(2);
const patience = { timeout: 120000 };
const browser = await puppeteer.launch({
  executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--enable-unsafe-swiftshader", "--use-gl=swiftshader"],
  defaultViewport: { width: 1280, height: 720 },
  protocolTimeout: 240000,
});

async function pause(milliseconds) {
  await new Promise((done) => setTimeout(done, milliseconds));
}

function check(ok, what) {
  if (!ok) {
    throw new Error(what);
  }
}

async function press(page, ...keys) {
  for (const key of keys) {
    await page.keyboard.down(key);
  }
  for (const key of keys.reverse()) {
    await page.keyboard.up(key);
  }
}

async function choose(page, opener, text) {
  await press(page, ...opener);
  await page.waitForSelector(".quick-input-widget input", patience);
  await pause(500);
  await page.keyboard.type(text);
  // What is chosen before the list is there is not heeded.
  for (let tries = 0; tries < 10; ++tries) {
    await pause(3000);
    await page.keyboard.press("Enter");
    await pause(2000);
    const isOpen = await page.evaluate(() => {
      const widget = document.querySelector(".quick-input-widget");
      return widget !== null && getComputedStyle(widget).display !== "none";
    });
    if (!isOpen) {
      return;
    }
  }
}

async function editorText(page) {
  return page.evaluate(() =>
    [...document.querySelectorAll(".editor-instance .view-line")]
      .sort((one, other) => parseFloat(one.style.top) - parseFloat(other.style.top))
      .map((line) => line.textContent.replaceAll("\u00a0", " "))
      .join("\n"));
}

async function waitForText(page, wanted, what) {
  for (let tries = 0; tries < 240; ++tries) {
    if (wanted(await editorText(page))) {
      return;
    }
    await pause(500);
  }
  throw new Error(`${what}:\n${await editorText(page)}`);
}

async function picture(page, name) {
  await page.screenshot({ path: path.join(pictures, name) });
}

let page;
try {
  page = await browser.newPage();
  await page.goto(address, { ...patience, waitUntil: "domcontentloaded" });
  await page.waitForSelector(".monaco-workbench .explorer-folders-view", patience);
  await pause(5000);
  await choose(page, ["Control", "KeyP"], file);
  await page.waitForSelector(".editor-instance .view-line", patience);

  await page.waitForSelector(".squiggly-error, .squiggly-warning", patience);
  console.log("vscode: findings are underlined");
  await waitForText(page, (text) => /Geometry\s*C2H6O/.test(text), "no hint");
  console.log("vscode: the hint stands at the geometry");

  await press(page, "Control", "KeyG");
  await pause(1000);
  await page.keyboard.type("18:8");
  await page.keyboard.press("Enter");
  await pause(1000);
  await page.keyboard.press("Enter");
  await page.keyboard.type("gue", { delay: 150 });
  await pause(2000);
  await press(page, "Control", "Space");
  await page.waitForSelector(".suggest-widget .monaco-list-row", patience);
  await pause(3000);
  const offered = await page.$$eval(".suggest-widget .monaco-list-row",
    (rows) => rows.map((row) => row.getAttribute("aria-label")));
  check(offered.some((label) => /^guess/.test(label)), `offered: ${offered}`);
  await picture(page, "vscode-completion.png");
  console.log("vscode: completion offers guess");
  await page.keyboard.press("Enter");
  await pause(1000);
  await page.keyboard.press("Escape");
  await waitForText(page, (text) => /guess\s*\n\s+atom/.test(text), "no value line");
  console.log("vscode: the snippet wrote its value line");

  check(/vshfit/.test(await editorText(page)), "the slip is not there");
  await choose(page, ["F1"], "BDF: Apply All Fixes");
  await waitForText(page, (text) => !/vshfit/.test(text) && /vshift/.test(text), "not mended");
  console.log("vscode: the safe fix was applied");
  // A word that nobody knows might have been the charge.
  await waitForText(page, (text) => /C2H6O, 26 electrons, multiplicity 1/.test(text), "no electrons");

  await press(page, "Control", "KeyG");
  await pause(1000);
  await page.keyboard.type("6:3");
  await page.keyboard.press("Enter");
  await choose(page, ["F1"], "BDF: Show the Molecule");
  await page.waitForSelector("iframe.webview", patience);
  await pause(8000);
  let atoms = 0;
  for (const frame of page.frames()) {
    atoms = Math.max(atoms, await frame.evaluate(
      "typeof viewer === 'undefined' ? 0 : viewer.selectedAtoms({}).length").catch(() => 0));
  }
  check(atoms > 0, "the molecule is not drawn");
  await picture(page, "vscode-molecule.png");
  console.log(`vscode: the molecule is drawn, ${atoms} atoms`);
} catch (problem) {
  await page?.screenshot({ path: path.join(pictures, "vscode-problem.png") }).catch(() => {});
  console.log(`vscode: ${problem.message}`);
  process.exitCode = 1;
} finally {
  await browser.close();
}
