// Puts the instruments on the page and draws each frame from the newest record.

import { engines, engineValues } from "./engines.js";
import { Link } from "./link.js";
import { mcp } from "./mcp.js";
import { nd, ndValues } from "./nd.js";
import { pfd, pfdValues } from "./pfd.js";

const speakEvery_ms = 1000;
const byId = (id) => document.getElementById(id);

const map = nd(byId("nd-picture"), byId("range"));
const drawPfd = pfd(byId("pfd-picture"));
const drawEngines = engines(byId("engines-picture"));

let spoken_ms = -Infinity;

function tell(text, alarm = false) {
  if (byId("link").textContent !== text) byId("link").textContent = text;
  byId("alarm").textContent = alarm ? text : "";
}

function showState(live, side) {
  document.body.classList.toggle("stale", !live);
  if (live) tell("Live");
  else tell(side === "server" ? "No data: the server is silent. It comes back by itself."
    : "No link to vorlent-web. Trying again.", true);
}

const link = new Link({
  onState: showState,
  onPlan: (plan) => map.takePlan(plan),
  onAircraft: (aircraft) => { byId("aircraft").textContent = aircraft.folder; },
  onNotice: (notice) => { if (!link.live) tell(notice, true); },
  onRefused: (why) => tell(`Not sent: ${why}`, true),
});

function send(command) {
  if (!link.send(command)) tell("Not sent: there is no link.", true);
}

const drawPanel = mcp(byId("panel"), send);
byId("range-down").addEventListener("click", () => map.zoom(-1));
byId("range-up").addEventListener("click", () => map.zoom(1));

function list(host, values) {
  const texts = Object.entries(values);
  while (host.children.length < texts.length * 2)
    host.append(document.createElement(host.children.length % 2 ? "dd" : "dt"));
  while (host.children.length > texts.length * 2) host.lastChild.remove();
  texts.forEach(([name, value], i) => {
    if (host.children[2 * i].textContent !== name) host.children[2 * i].textContent = name;
    if (host.children[2 * i + 1].textContent !== value) host.children[2 * i + 1].textContent = value;
  });
}

function speak(record) {
  list(byId("pfd-values"), pfdValues(record));
  list(byId("nd-values"), ndValues(record));
  list(byId("engines-values"), engineValues(record));
}

function frame(now_ms) {
  const { record } = link;
  if (record && link.live) {
    drawPfd(record, now_ms);
    map.draw(record);
    drawEngines(record);
    drawPanel(record, now_ms);
    if (now_ms - spoken_ms > speakEvery_ms) {
      speak(record);
      spoken_ms = now_ms;
    }
  }
  requestAnimationFrame(frame);
}

requestAnimationFrame(frame);
