// The page in a real browser, over the real programs: node --test cockpit.test.js, with the folder of
// the programs in PROGRAMS, that of the shipped files in DATA, and the browser in BROWSER.
// With PICTURES it leaves what docs/web.md shows in that folder.

import assert from "node:assert/strict";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { connect } from "node:net";
import { readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { chromium } from "playwright-core";
import { Cockpit, patience_ms } from "./programs.js";

const { PROGRAMS, DATA, BROWSER = "/usr/bin/chromium", PICTURES } = process.env;
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

const cockpit = new Cockpit(PROGRAMS, DATA);
let browser, address;

before(async () => {
  await cockpit.startFlight();
  address = await cockpit.startWeb("--web-port", "0");
  // The tests' machine may give a browser no sandbox of its own.
  browser = await chromium.launch({ executablePath: BROWSER, args: ["--no-sandbox"] });
});

after(async () => {
  await browser?.close();
  await cockpit.end();
});

const sizes = { wall: [1600, 900], tablet: [820, 1180], phone: [390, 844] };

async function open(size = "wall", where = address) {
  const [width, height] = sizes[size];
  const context = await browser.newContext({ viewport: { width, height }, hasTouch: size !== "wall", bypassCSP: false });
  const page = await context.newPage();
  page.faults = [];
  page.requests = [];
  page.on("pageerror", (error) => page.faults.push(error.message));
  page.on("request", (request) => page.requests.push(request.url()));
  await page.goto(where);
  await page.waitForSelector("body:not(.stale)", { timeout: patience_ms });
  return page;
}

const close = (page) => page.context().close();
const shown = (page, name) => page.locator(`[data-value="${name}"]`).textContent();
const number = async (page, name) => Number(await shown(page, name));

async function until(what, condition, limit_ms = patience_ms) {
  const end = Date.now() + limit_ms;
  for (;;) {
    const seen = await condition();
    if (seen) return seen;
    if (Date.now() > end) assert.fail(`not within ${limit_ms} ms: ${what}`);
    await new Promise((resolve) => setTimeout(resolve, 50));
  }
}

const isLit = async (page, id) => (await page.getAttribute(`#${id}`, "aria-pressed")) === "true";

async function dial(page, id, value) {
  await page.fill(`#${id}-window`, String(value));
  await page.press(`#${id}-window`, "Enter");
}

const picture = (page, name) => PICTURES && page.screenshot({ path: join(PICTURES, `${name}.png`) });

test("the instruments show the flight, and nothing but this place is asked for it", async () => {
  const page = await open();
  await until("5000 feet at 250 knots", async () => Math.abs((await number(page, "altitude")) - 5000) < 100 &&
    Math.abs((await number(page, "ias")) - 250) < 5);
  assert.ok(Math.abs((await number(page, "n1-1")) - (await number(page, "n1-2"))) < 2);
  assert.match(await page.textContent("#pfd-values"), /Airspeed2[45]\d knots/);
  assert.deepEqual(page.requests.filter((url) => !url.startsWith(address) && !url.startsWith(address.replace("http", "ws"))), []);
  assert.deepEqual(page.faults, []);
  await close(page);
});

test("the autopilot is engaged by clicks, and the aircraft climbs and turns", async () => {
  const page = await open();
  const from = await number(page, "altitude");
  await dial(page, "altitude", 8000);
  await dial(page, "speed", 250);
  await page.click("#at-arm");
  if (!(await isLit(page, "fd"))) await page.click("#fd");
  await page.click("#cmd-a");
  await until("CMD A lit", () => isLit(page, "cmd-a"));
  await page.click("#hdg-sel");
  await dial(page, "heading", 300);
  await page.click("#lvl-chg");
  await until("HDG SEL and LVL CHG lit", async () => (await isLit(page, "hdg-sel")) && (await isLit(page, "lvl-chg")));
  assert.equal(await shown(page, "roll-engaged"), "HDG SEL");
  await until("a climb of 100 feet", async () => (await number(page, "altitude")) > from + 100, 60_000);
  await until("a turn to the right", async () => parseInt(await shown(page, "heading"), 10) > 242, 60_000);
  await picture(page, "wall");
  assert.deepEqual(page.faults, []);
  await close(page);
});

test("knobs turn by wheel, keys and drag", async () => {
  const page = await open();
  await dial(page, "course", 100);
  await until("course 100", async () => (await page.inputValue("#course-window")) === "100");
  const knob = page.locator("#course-knob");
  await knob.hover();
  await page.mouse.wheel(0, -100);
  await until("wheel", async () => (await page.inputValue("#course-window")) === "101");
  await knob.press("ArrowDown");
  await knob.press("PageUp");
  await until("keys", async () => (await page.inputValue("#course-window")) === "110");
  const box = await knob.boundingBox();
  await page.mouse.move(box.x + 20, box.y + 20);
  await page.mouse.down();
  await page.mouse.move(box.x + 20, box.y - 15, { steps: 7 });
  await page.mouse.up();
  await until("drag", async () => (await page.inputValue("#course-window")) === "115");
  // Once the window follows the record again it still says so: the server has taken it.
  await new Promise((resolve) => setTimeout(resolve, 2000));
  assert.equal(await page.inputValue("#course-window"), "115");
  assert.equal(await knob.getAttribute("aria-valuenow"), "115");
  await close(page);
});

test("the plan is drawn on the map", async () => {
  const row = (name, latitude, longitude, kind = "") =>
    `"${name}","","",${"0,".repeat(14)}12000,0,0,"${kind}",0,${latitude},${longitude},0,0`;
  const page = await open("tablet");
  const [latitude, longitude] = (await page.textContent("#nd-values")).match(/-?\d+\.\d{3}/g).map(Number);
  writeFileSync(join(cockpit.share, "FMS/PROF"), `1\r\n${row("START", latitude, longitude)}\r\n${row("T/C", latitude + 0.2, longitude, "PRF")}\r\n`);
  writeFileSync(join(cockpit.share, "FMS/EXEC"), `2\r\n${row("START", latitude, longitude)}\r\n${row("ALPHA", latitude + 0.3, longitude)}\r\n${row("BRAVO", latitude + 0.4, longitude - 0.6)}\r\n`);
  await until("three waypoints", async () => (await page.locator(".waypoint").count()) === 3);
  assert.deepEqual(await page.locator(".waypoint text").allTextContents(), ["START", "ALPHA", "BRAVO"]);
  assert.deepEqual(await page.locator(".point text").allTextContents(), ["T/C"]);
  await page.click("#range-down");
  assert.equal(await page.textContent("#range"), "20 NM");
  await page.click("#range-up");
  await picture(page, "tablet");
  await close(page);
});

test("a server that stops greys the page within half a second, and the page comes back by itself", async () => {
  const page = await open();
  // The page notes by itself when it turned grey.
  await page.evaluate(() => {
    new MutationObserver(() => { globalThis.greyAt_ms ??= document.body.classList.contains("stale") ? Date.now() : undefined; })
      .observe(document.body, { attributes: true });
  });
  const stopped_ms = Date.now();
  await cockpit.server.end("SIGKILL");
  await page.waitForSelector("body.stale", { timeout: patience_ms });
  const after_ms = (await page.evaluate(() => globalThis.greyAt_ms)) - stopped_ms;
  assert.ok(after_ms < 600, `grey after ${after_ms} ms of the kill`);
  await page.getByRole("alert").filter({ hasText: /No data|nothing has come|greeting/ }).waitFor();
  await picture(page, "no-data");
  await cockpit.startServer();
  await page.waitForSelector("body:not(.stale)", { timeout: patience_ms });
  await close(page);
});

test("vorlent-web that stops is said on the page, which comes back by itself", async () => {
  const port = new URL(address).port;
  const page = await open();
  await cockpit.web.end("SIGKILL");
  await page.getByRole("alert").filter({ hasText: "No link to vorlent-web" }).waitFor();
  await cockpit.startWeb("--web-port", port);
  await page.waitForSelector("body:not(.stale)", { timeout: patience_ms });
  await close(page);
});

test("eight pages fly at once", async () => {
  const pages = await Promise.all(Array.from({ length: 8 }, () => open("phone")));
  const count = () => Promise.all(pages.map((page) => page.evaluate(async () => {
    const { Link } = await import("./link.js");
    const events = { onState() {}, onPlan() {}, onAircraft() {}, onNotice() {}, onRefused() {} };
    globalThis.probe ??= new Link(events);
    return globalThis.probe.record !== null;
  })));
  await until("a record on each", async () => (await count()).every(Boolean));
  await dial(pages[0], "heading", 270);
  for (const page of pages)
    await until("the heading on every page", async () => (await page.inputValue("#heading-window")) === "270");
  await picture(pages[0], "phone");
  await Promise.all(pages.map(close));
});

for (const size of Object.keys(sizes))
  test(`on a ${size} everything can be touched, nothing runs out of it, and axe finds nothing`, async () => {
    const page = await open(size);
    const [width] = sizes[size];
    assert.ok((await page.evaluate(() => document.documentElement.scrollWidth)) <= width);
    const small = await page.$$eval("button, .knob, input, nav a", (targets) => targets.flatMap((target) => {
      const { width, height } = target.getBoundingClientRect();
      return width > 0 && (width < 44 || height < 44) ? [`${target.id} ${width} x ${height}`] : [];
    }));
    assert.deepEqual(small, []);
    // By the debugging protocol: the page's own policy lets no foreign script in.
    await page.evaluate(axe);
    const { violations } = await page.evaluate(() => globalThis.axe.run({ exclude: ["svg"] })); // hidden from readers; the lists say what they show
    assert.deepEqual(violations.map((v) => `${v.id}: ${v.nodes.map((n) => n.target).join(" ")}`), []);
    await close(page);
  });

test("a page of another origin gets nothing and commands nothing", async () => {
  const foreign = createServer((request, response) => response.end("<!doctype html><title>x</title>")).listen(0, "127.0.0.1");
  await new Promise((resolve) => foreign.once("listening", resolve));
  const page = await (await browser.newContext()).newPage();
  await page.goto(`http://127.0.0.1:${foreign.address().port}/`);
  const seen = await page.evaluate((url) => new Promise((resolve) => {
    const socket = new WebSocket(url);
    const messages = [];
    socket.onopen = () => socket.send("A 82 111");
    socket.onmessage = (event) => messages.push(event.data);
    socket.onclose = (event) => resolve({ messages, code: event.code });
  }), `${address.replace("http", "ws")}live`);
  assert.deepEqual(seen, { messages: [], code: 1008 });
  const own = await open();
  assert.notEqual(await own.inputValue("#heading-window"), "111");
  foreign.close();
  await page.context().close();
  await close(own);
});

test("a keystroke code and a message that is too long do not pass", async () => {
  const page = await open();
  const answers = await page.evaluate(() => new Promise((resolve) => {
    const socket = new WebSocket(`ws://${location.host}/live`);
    const refused = [];
    socket.onopen = () => { socket.send("P 1065 1"); socket.send(`A 82 ${"1".repeat(1000)}`); };
    socket.onmessage = (event) => { const { refused: why } = JSON.parse(event.data); if (why) refused.push(why); };
    socket.onclose = (event) => resolve({ refused, code: event.code });
  }));
  assert.match(answers.refused[0], /keystrokes are not for pages/);
  assert.equal(answers.code, 1009);
  assert.doesNotMatch(cockpit.server.said, /keystroke/);
  await close(page);
});

test("on a network the page asks for the token that was printed", async () => {
  const web = cockpit.start("vorlent-web", "127.0.0.1", String(cockpit.port + 1), "--name", "display", "--listen", "0.0.0.0", "--web-port", "0");
  const printed = new URL((await web.says(/page: (\S+)/))[1]);
  const home = `http://127.0.0.1:${printed.port}/`;
  assert.equal((await fetch(home)).status, 401);
  assert.equal((await fetch(`${home}?token=${"a".repeat(20)}`)).status, 401);
  const entry = await fetch(`${home}${printed.search}`, { redirect: "manual" });
  assert.equal(entry.status, 303);
  assert.match(entry.headers.get("set-cookie"), /HttpOnly; SameSite=Strict/);
  const page = await open("wall", `${home}${printed.search}`);
  assert.equal(page.url(), home);
  await close(page);
  await web.end();
});

test("a connection that sends without end is cut off", async () => {
  const socket = connect(Number(new URL(address).port), "127.0.0.1");
  let cut = false;
  socket.on("error", () => {}).on("close", () => { cut = true; });
  socket.write("GET / HTTP/1.1\r\nHost: localhost\r\nContent-Length: 100000000\r\n\r\n");
  const flood = setInterval(() => socket.write("x".repeat(16384)), 5);
  await until("the cut", () => cut);
  clearInterval(flood);
});
