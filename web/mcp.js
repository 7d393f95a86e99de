// The mode control panel: windows, knobs and buttons, each of which sends commands (docs/commands.md).

import { bit, clamp, selectedAltitude, wrap360 } from "./values.js";

const hold_ms = 1500; // so long a window shows what was asked for before it follows the record again
const sendEvery_ms = 60; // a knob that turns fast sends its last value only
const dragPerStep_px = 7;

const wholeCourse = (degrees) => wrap360(Math.round(degrees)) || 360;

const dials = [
  { id: "course", label: "COURSE", code: 80, step: 1, big: 10, shown: wholeCourse, fix: wholeCourse, read: (r) => r.apCourse,
    text: (v) => String(v).padStart(3, "0") },
  { id: "speed", label: "IAS / MACH", code: 84, step: 1, big: 10,
    shown: (v) => (v < 1 ? Math.round(v * 100) / 100 : Math.round(v)),
    fix: (v, r) => (bit(r, "apChangeover") ? clamp(Math.round(v * 100) / 100, 0.4, 0.9) : clamp(Math.round(v), 100, 340)),
    read: (r) => (bit(r, "apChangeover") ? r.apMachNumber : r.apMcpAirSpeed),
    scale: (r) => (bit(r, "apChangeover") ? 0.01 : 1),
    text: (v) => (v > 0 && v < 1 ? v.toFixed(2).replace(/^0/, "") : String(v).padStart(3, "0")) },
  { id: "heading", label: "HEADING", code: 82, step: 1, big: 10, shown: wholeCourse, fix: wholeCourse, read: (r) => r.ApHeadingSim,
    text: (v) => String(v).padStart(3, "0") },
  { id: "altitude", label: "ALTITUDE", code: 81, step: 100, big: 1000,
    shown: Math.round, fix: (v) => clamp(Math.round(v / 100) * 100, 0, 50000), read: selectedAltitude, text: (v) => String(v).padStart(5, "0") },
  { id: "vertical-speed", label: "VERT SPEED", code: 85, step: 100, big: 500,
    shown: Math.round, fix: (v) => clamp(Math.round(v / 50) * 50, -7900, 6000), read: (r) => r.apVertSpeed,
    text: (v) => `${v > 0 ? "+" : v < 0 ? "−" : ""}${String(Math.abs(v)).padStart(4, "0")}` },
];

// What is beside, under and around the windows; `lit` says when its lamp is on.
const groups = [
  { at: "course", buttons: [
    { id: "fd", label: "F/D", code: 188, lit: (r) => r.FdActive !== 0 },
    { id: "at-arm", label: "A/T ARM", code: 163, lit: (r) => bit(r, "apAutoThrottle") }] },
  { at: "speed", buttons: [
    { id: "n1", label: "N1", code: 164, lit: (r) => bit(r, "apRpmHold") },
    { id: "speed-mode", label: "SPEED", code: 165, lit: (r) => bit(r, "apAirspeedHoldByRpm") },
    { id: "co", label: "C/O", code: 166, lit: (r) => bit(r, "apChangeover") },
    { id: "lvl-chg", label: "LVL CHG", code: 167, lit: (r) => bit(r, "apLevelChange") },
    { id: "vnav", label: "VNAV", code: 168, lit: (r) => bit(r, "VNAV") }] },
  { at: "heading", buttons: [
    { id: "hdg-sel", label: "HDG SEL", code: 172, lit: (r) => bit(r, "apHeadingHold") },
    { id: "lnav", label: "LNAV", code: 169, lit: (r) => bit(r, "LNAV") },
    { id: "vor-loc", label: "VOR LOC", code: 170, lit: (r) => bit(r, "apNav1Hold") || bit(r, "apLocalizerHold") },
    { id: "app", label: "APP", code: 171, lit: (r) => bit(r, "apApproachHold") }] },
  { at: "altitude", buttons: [
    { id: "alt-hld", label: "ALT HLD", code: 174, lit: (r) => bit(r, "apAltitudeHold") },
    { id: "toga", label: "TO/GA", code: 214, lit: (r) => bit(r, "apToGa") }] },
  { at: "vertical-speed", buttons: [
    { id: "vs", label: "V/S", code: 175, lit: (r) => bit(r, "apVSpeedHold") }] },
  { at: null, title: "A/P ENGAGE", buttons: [
    { id: "cmd-a", label: "CMD A", code: 183, lit: (r) => bit(r, "apCmdLeft") },
    { id: "cmd-b", label: "CMD B", code: 185, lit: (r) => bit(r, "apCmdRight") },
    { id: "cws-a", label: "CWS A", code: 186, lit: (r) => bit(r, "apCwsLeft") },
    { id: "cws-b", label: "CWS B", code: 187, lit: (r) => bit(r, "apCwsRight") },
    { id: "master", label: "A/P MASTER", code: 162, lit: (r) => bit(r, "apMaster"), wide: true }] },
];

function element(parent, name, attributes = {}, text = "") {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  made.textContent = text;
  parent.append(made);
  return made;
}

class Dial {
  #spec; #send; #record = null;
  #asked = null; #asked_ms = -Infinity; #sent_ms = -Infinity; #timer = null;
  #window; #knob; #face; #turned = 0;

  constructor(parent, spec, send) {
    this.#spec = spec;
    this.#send = send;
    const box = element(parent, "div", { class: "dial" });
    element(box, "label", { for: `${spec.id}-window`, class: "caption" }, spec.label);
    this.#window = element(box, "input", { id: `${spec.id}-window`, class: "window", inputmode: "decimal",
      autocomplete: "off", spellcheck: "false", maxlength: "6", size: "6" });
    this.#knob = element(box, "div", { id: `${spec.id}-knob`, class: "knob", role: "spinbutton", tabindex: "0",
      "aria-label": `${spec.label} knob` });
    this.#face = element(this.#knob, "span", { class: "grip" });
    this.#listen();
  }

  show(record, now_ms) {
    this.#record = record;
    if (now_ms - this.#asked_ms > hold_ms) this.#asked = null;
    const value = this.#value();
    if (document.activeElement !== this.#window) this.#set(this.#window, "value", this.#spec.text(value));
    if (this.#knob.ariaValueNow !== String(value)) {
      this.#knob.setAttribute("aria-valuenow", value);
      this.#knob.setAttribute("aria-valuetext", this.#spec.text(value));
    }
  }

  #set(target, name, value) {
    if (target[name] !== value) target[name] = value;
  }

  // What the record says stands as it is; only what is asked for is held to the panel's limits.
  #value() { return this.#asked ?? this.#spec.shown(this.#spec.read(this.#record)); }

  #turn(steps, size = this.#spec.step) {
    if (!this.#record || steps === 0) return;
    const scale = this.#spec.scale?.(this.#record) ?? 1;
    this.#ask(this.#value() + steps * size * scale);
    this.#turned += steps * 12;
    this.#face.style.transform = `rotate(${this.#turned}deg)`;
  }

  #ask(value) {
    this.#asked = this.#spec.fix(value, this.#record);
    this.#asked_ms = performance.now();
    this.show(this.#record, this.#asked_ms);
    const wait_ms = Math.max(0, this.#sent_ms + sendEvery_ms - this.#asked_ms);
    this.#timer ??= setTimeout(() => this.#flush(), wait_ms);
  }

  #flush() {
    this.#timer = null;
    this.#sent_ms = performance.now();
    if (this.#asked !== null) this.#send(`A ${this.#spec.code} ${this.#asked}`);
  }

  #listen() {
    this.#knob.addEventListener("wheel", (event) => {
      event.preventDefault();
      this.#turn(event.deltaY < 0 ? 1 : -1, event.shiftKey ? this.#spec.big : this.#spec.step);
    }, { passive: false });
    this.#knob.addEventListener("keydown", (event) => this.#key(event));
    this.#listenToDrags();
    this.#window.addEventListener("keydown", (event) => {
      if (event.key === "Enter") this.#window.blur();
      if (event.key === "Escape") { this.#window.value = ""; this.#window.blur(); }
    });
    this.#window.addEventListener("focus", () => this.#window.select());
    this.#window.addEventListener("blur", () => this.#typed());
  }

  #key(event) {
    const { step, big } = this.#spec;
    const turns = { ArrowUp: [1, step], ArrowRight: [1, step], ArrowDown: [-1, step], ArrowLeft: [-1, step],
      PageUp: [1, big], PageDown: [-1, big] };
    const turn = turns[event.key];
    if (!turn) return;
    event.preventDefault();
    this.#turn(...turn);
  }

  // Up and right turn clockwise.
  #listenToDrags() {
    let from = null;
    this.#knob.addEventListener("pointerdown", (event) => {
      this.#knob.setPointerCapture(event.pointerId);
      from = event.clientX - event.clientY;
    });
    this.#knob.addEventListener("pointermove", (event) => {
      if (from === null) return;
      const steps = Math.trunc((event.clientX - event.clientY - from) / dragPerStep_px);
      from += steps * dragPerStep_px;
      this.#turn(steps);
    });
    for (const end of ["pointerup", "pointercancel"]) this.#knob.addEventListener(end, () => { from = null; });
  }

  #typed() {
    if (!this.#record) return;
    const text = this.#window.value.trim().replace("−", "-").replace(",", ".");
    const value = Number(text);
    if (text !== "" && Number.isFinite(value) && text !== this.#spec.text(this.#value()).replace("−", "-")) this.#ask(value);
    this.#window.value = this.#spec.text(this.#value());
  }
}

function button(parent, spec, send) {
  const made = element(parent, "button", { type: "button", id: spec.id, "aria-pressed": "false", class: spec.wide ? "key wide" : "key" }, "");
  element(made, "span", { class: "lamp" });
  element(made, "span", {}, spec.label);
  made.addEventListener("click", () => send(`P ${spec.code} 1`));
  return (record) => {
    const lit = String(spec.lit(record));
    if (made.getAttribute("aria-pressed") !== lit) made.setAttribute("aria-pressed", lit);
  };
}

export function mcp(host, send) {
  const draws = [];
  for (const group of groups) {
    const box = element(host, "div", { class: "group", role: "group", "aria-label": group.title ?? dials.find((d) => d.id === group.at).label });
    const spec = dials.find((dial) => dial.id === group.at);
    if (spec) {
      const dial = new Dial(box, spec, send);
      draws.push((record, now_ms) => dial.show(record, now_ms));
    } else {
      element(box, "p", { class: "caption" }, group.title);
    }
    const keys = element(box, "div", { class: group.buttons.length === 5 && spec ? "keys three" : "keys" });
    for (const key of group.buttons) draws.push(button(keys, key, send));
  }
  return (record, now_ms) => draws.forEach((draw) => draw(record, now_ms));
}
