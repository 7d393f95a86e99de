// The primary flight display.

import { add, clipped, move, onCircle, picture, put, show, turn, write } from "./svg.js";
import { bankOf, bit, clamp, degreesText, modeText, selectedAltitude, wrap180 } from "./values.js";

const width = 600, height = 640;
const centre = { x: 280, y: 318 };
const perDegree = 8.2; // of pitch
const tapeTop = 92, tapeBottom = 544;
const standard_hPa = 1013.25, perInch_hPa = 33.8639;

function modes(svg) {
  const cells = ["at", "roll", "pitch"].map((name, column) => {
    const x = 80 + column * 160;
    add(svg, "rect", { x, y: 8, width: 160, height: 56, class: "annunciator" });
    return {
      engaged: add(svg, "text", { x: x + 80, y: 31, class: "mode engaged", "data-value": `${name}-engaged` }, ""),
      armed: add(svg, "text", { x: x + 80, y: 56, class: "mode armed", "data-value": `${name}-armed` }, ""),
    };
  });
  const status = add(svg, "text", { x: centre.x, y: 112, class: "mode status", "data-value": "autopilot" }, "");
  return (r) => {
    const engaged = [r.ATEngagedMode, r.RollEngagedMode, r.PitchEngagedMode];
    const armed = [r.CwsRollEngagedMode, r.CwsPitchEngagedMode];
    engaged.forEach((text, i) => write(cells[i].engaged, modeText(text)));
    write(cells[1].armed, modeText(r.RollArmedMode) || modeText(armed[0]));
    write(cells[2].armed, modeText(r.PitchArmedMode) || modeText(armed[1]));
    write(status, r.AutopilotMode === "FD" && !r.FdActive ? "" : modeText(r.AutopilotMode));
  };
}

function ladder(ball) {
  for (let pitch = -90; pitch <= 90; pitch += 2.5) {
    if (pitch === 0) continue;
    const half = pitch % 10 === 0 ? 62 : pitch % 5 === 0 ? 32 : 14;
    const y = centre.y - pitch * perDegree;
    add(ball, "line", { x1: centre.x - half, x2: centre.x + half, y1: y, y2: y, class: "white-line" });
    if (pitch % 10 !== 0) continue;
    for (const side of [-1, 1])
      add(ball, "text", { x: centre.x + side * (half + 20), y: y + 6, class: "ladder" }, Math.abs(pitch));
  }
}

function bankScale(svg) {
  const radius = 176;
  for (const angle of [-60, -45, -30, -20, -10, 10, 20, 30, 45, 60]) {
    const long = Math.abs(angle) % 30 === 0 ? 20 : 11;
    const [x1, y1] = onCircle(centre.x, centre.y, radius, angle);
    const [x2, y2] = onCircle(centre.x, centre.y, radius + long, angle);
    add(svg, "line", { x1, y1, x2, y2, class: "white-line" });
  }
  add(svg, "path", { d: `M${centre.x} ${centre.y - radius} l-9 -16 h18 z`, class: "white" });
  const pointer = add(svg, "g");
  add(pointer, "path", { d: `M${centre.x} ${centre.y - radius + 3} l-10 17 h20 z`, class: "hollow" });
  const slip = add(pointer, "rect", { x: centre.x - 11, y: centre.y - radius + 22, width: 22, height: 6, class: "hollow" });
  return { pointer, slip };
}

function attitude(svg) {
  const frame = clipped(svg, 122, tapeTop + 34, 316, 384);
  const rolled = add(frame, "g");
  const ball = add(rolled, "g");
  add(ball, "rect", { x: -600, y: centre.y - 1400, width: 1800, height: 1400, class: "sky" });
  add(ball, "rect", { x: -600, y: centre.y, width: 1800, height: 1400, class: "ground" });
  add(ball, "line", { x1: -600, x2: 1200, y1: centre.y, y2: centre.y, class: "white-line" });
  const rungs = add(clipped(rolled, 122, centre.y - 142, 316, 276), "g");
  ladder(rungs);
  const { pointer, slip } = bankScale(frame);
  const director = add(frame, "g", { class: "director" });
  const bar = add(director, "line", { x1: centre.x - 90, x2: centre.x + 90, y1: centre.y, y2: centre.y });
  for (const side of [-1, 1])
    add(frame, "path", {
      d: `M${centre.x + side * 112} ${centre.y - 5} h${-side * 66} v20 h${side * 10} v-10 h${side * 56} z`,
      class: "aircraft",
    });
  add(frame, "rect", { x: centre.x - 5, y: centre.y - 5, width: 10, height: 10, class: "aircraft" });
  return (r) => {
    const pitch = clamp(r.Pitch, -90, 90), bank = bankOf(r);
    turn(rolled, -bank, centre.x, centre.y);
    move(ball, 0, pitch * perDegree);
    move(rungs, 0, pitch * perDegree);
    turn(pointer, -bank, centre.x, centre.y);
    move(slip, clamp(r.TurnCoordinatorBall / 127, -1, 1) * 30, 0);
    show(director, r.FdActive !== 0);
    // What is to be pitched down from here. The director's bank has no sign, so there is no bar for it.
    move(bar, 0, clamp(r.FdPitch * perDegree, -110, 110));
  };
}

// A tape whose ticks are drawn around the present value and moved between two of them.
function tape(svg, box, options) {
  const { step, perUnit, label, low = -Infinity, ticks } = options;
  add(svg, "rect", { x: box.x, y: tapeTop, width: box.width, height: tapeBottom - tapeTop, class: "tape" });
  const clip = clipped(svg, box.x - 14, tapeTop, box.width + 28, tapeBottom - tapeTop);
  const strip = add(clip, "g");
  const marks = Array.from({ length: ticks * 2 + 1 }, () => ({
    line: add(strip, "line", { class: "white-line" }),
    text: add(strip, "text", { class: `tape-text ${box.right ? "end" : "start"}` }, ""),
  }));
  let drawn = null;
  const edge = box.right ? box.x + box.width : box.x;
  const inward = box.right ? -1 : 1;
  const redraw = (base) => {
    marks.forEach((mark, i) => {
      const value = base + (i - ticks) * step;
      const y = centre.y - (value - base) * perUnit;
      show(mark.line, value >= low);
      for (const [name, at] of [["x1", edge], ["x2", edge + inward * 14], ["y1", y], ["y2", y]]) put(mark.line, name, at);
      put(mark.text, "x", box.right ? edge - 20 : edge + 20);
      put(mark.text, "y", y + 7);
      write(mark.text, value >= low ? label(value) : "");
    });
  };
  return {
    clip,
    draw(value) {
      const base = Math.round(value / step) * step;
      if (base !== drawn) redraw((drawn = base));
      move(strip, 0, (value - base) * perUnit);
    },
  };
}

function readout(svg, x, boxWidth, name, pointRight) {
  const top = centre.y - 24, bottom = centre.y + 24;
  const tip = pointRight ? `L${x + boxWidth} ${top} l0 16 l10 8 l-10 8 L${x + boxWidth} ${bottom} L${x} ${bottom}`
    : `L${x + boxWidth} ${top} L${x + boxWidth} ${bottom} L${x} ${bottom} l0 -16 l-10 -8 l10 -8`;
  add(svg, "path", { d: `M${x} ${top} ${tip} z`, class: "readout" });
  return add(svg, "text", { x: x + boxWidth - 8, y: centre.y + 10, class: "readout-text", "data-value": name }, "");
}

function speed(svg) {
  const perKnot = 3.6;
  const scale = tape(svg, { x: 26, width: 76, right: true }, {
    step: 10, perUnit: perKnot, low: 30, ticks: 8, label: (v) => (v % 20 === 0 ? String(v) : ""),
  });
  const limit = add(scale.clip, "g");
  add(limit, "rect", { x: 94, y: -600, width: 8, height: 600, class: "barber" });
  const bug = add(scale.clip, "path", { d: "M102 0 l-14 -11 h26 v22 h-26 z", class: "bug" });
  const trend = add(scale.clip, "line", { x1: 108, x2: 108, y1: centre.y, class: "trend" });
  const shown = readout(svg, 20, 66, "ias", true);
  const selected = add(svg, "text", { x: 64, y: 86, class: "selected", "data-value": "selected-speed" }, "");
  const mach = add(svg, "text", { x: 64, y: 576, class: "value", "data-value": "mach" }, "");
  const past = [];
  return (r, now_ms) => {
    const ias = r.Ias, at = Math.max(ias, 30);
    scale.draw(at);
    write(shown, String(Math.round(at)));
    const off = (value) => centre.y - (value - at) * perKnot;
    move(limit, 0, off(r.BarberPole));
    const byMach = bit(r, "apChangeover");
    const target = byMach && r.Mach > 0.1 ? (ias * r.apMachNumber) / r.Mach : r.apMcpAirSpeed;
    move(bug, 0, clamp(off(target), tapeTop, tapeBottom));
    write(selected, byMach ? r.apMachNumber.toFixed(2).replace(/^0/, "") : String(Math.round(r.apMcpAirSpeed)));
    write(mach, r.Mach >= 0.4 ? r.Mach.toFixed(3).replace(/^0/, "") : `GS ${r.GroundSpeed}`);
    past.push([now_ms, ias]);
    while (past.length > 2 && now_ms - past[0][0] > 2000) past.shift();
    const seconds = (now_ms - past[0][0]) / 1000;
    const ahead = seconds > 0.5 ? ((ias - past[0][1]) / seconds) * 10 : 0;
    show(trend, Math.abs(ahead) > 4);
    put(trend, "y2", (centre.y - clamp(ahead, -60, 60) * perKnot).toFixed(1));
  };
}

function altitude(svg) {
  const perFoot = 0.52;
  const scale = tape(svg, { x: 456, width: 84, right: false }, {
    step: 100, perUnit: perFoot, ticks: 6, label: (v) => (v % 200 === 0 ? String(v) : ""),
  });
  const bug = add(scale.clip, "path", { d: "M456 0 l14 -11 v-12 h-26 v46 h26 v-12 z", class: "bug" });
  const minimums = add(scale.clip, "path", { d: "M446 0 l-10 -10 v20 z M446 0 h94", class: "minimums" });
  const shown = readout(svg, 464, 84, "altitude", false);
  const selected = add(svg, "text", { x: 498, y: 86, class: "selected", "data-value": "selected-altitude" }, "");
  const pressure = add(svg, "text", { x: 498, y: 576, class: "pressure", "data-value": "pressure" }, "");
  return (r) => {
    const at = r.AircraftAltitude;
    scale.draw(at);
    write(shown, String(Math.round(at / 10) * 10));
    const off = (value) => clamp(centre.y - (value - at) * perFoot, tapeTop, tapeBottom);
    move(bug, 0, off(selectedAltitude(r)));
    move(minimums, 0, centre.y - (r.Minimums - at) * perFoot);
    show(minimums, r.Minimums > 0);
    write(selected, String(Math.round(selectedAltitude(r))));
    const hPa = r["StateValues(14)"];
    write(pressure, Math.abs(hPa - standard_hPa) < 0.05 ? "STD"
      : `${Math.round(hPa)} / ${(hPa / perInch_hPa).toFixed(2)}`);
  };
}

function verticalSpeed(svg) {
  const x = 556, top = centre.y - 120, bottom = centre.y + 120;
  add(svg, "path", { d: `M${x} ${top - 14} h20 l20 40 v${bottom - top - 52} l-20 40 h-20 z`, class: "tape" });
  const place = (fpm) => {
    const k = Math.abs(fpm) / 1000;
    const part = k <= 1 ? k * 0.46 : k <= 2 ? 0.46 + (k - 1) * 0.28 : 0.74 + (Math.min(k, 6) - 2) * 0.065;
    return centre.y - Math.sign(fpm) * part * 116;
  };
  for (const k of [-6, -2, -1, 0, 1, 2, 6]) {
    const y = place(k * 1000);
    add(svg, "line", { x1: x + 12, x2: x + 20, y1: y, y2: y, class: "white-line" });
    if (k !== 0) add(svg, "text", { x: x + 6, y: y + 5, class: "small" }, Math.abs(k));
  }
  const needle = add(svg, "line", { x1: x + 44, y1: centre.y, x2: x + 18, y2: centre.y, class: "needle" });
  const text = add(svg, "text", { x: x + 18, y: 0, class: "value", "data-value": "vertical-speed" }, "");
  return (r) => {
    const fpm = r.VerticalSpeed;
    put(needle, "y2", place(fpm).toFixed(1));
    write(text, Math.abs(fpm) >= 400 ? String(Math.round(Math.abs(fpm) / 50) * 50) : "");
    put(text, "y", fpm >= 0 ? top - 22 : bottom + 30);
  };
}

function heading(svg) {
  const x = centre.x, y = 780, radius = 200;
  const clip = clipped(svg, 112, 560, 336, 80);
  add(clip, "circle", { cx: x, cy: y, r: radius, class: "tape" });
  const card = add(clip, "g");
  for (let angle = 0; angle < 360; angle += 5) {
    const [x1, y1] = onCircle(x, y, radius, angle);
    const [x2, y2] = onCircle(x, y, radius - (angle % 10 === 0 ? 14 : 8), angle);
    add(card, "line", { x1, y1, x2, y2, class: "white-line" });
    if (angle % 10 !== 0) continue;
    const [tx, ty] = onCircle(x, y, radius - 30, angle);
    add(card, "text", { x: tx, y: ty, class: angle % 30 === 0 ? "card" : "card-small", transform: `rotate(${angle} ${tx} ${ty})` }, angle / 10);
  }
  const bug = add(clip, "path", { d: `M${x} ${y - radius} l-7 -12 h-8 v16 h30 v-16 h-8 z`, class: "bug" });
  add(svg, "path", { d: `M${x} ${y - radius} l-10 -16 h20 z`, class: "white" });
  const selected = add(svg, "text", { x: 64, y: 612, class: "selected-small", "data-value": "selected-heading" }, "");
  const shown = add(svg, "text", { x: 498, y: 612, class: "pressure", "data-value": "heading" }, "");
  return (r) => {
    turn(card, -r.MagHeading, x, y);
    turn(bug, clamp(wrap180(r.ApHeadingSim - r.MagHeading), -45, 45), x, y);
    write(selected, `${degreesText(r.ApHeadingSim)} H`);
    write(shown, `${degreesText(r.MagHeading)} MAG`);
  };
}

function deviation(svg) {
  const dots = (points) => points.forEach(([cx, cy]) => add(group, "circle", { cx, cy, r: 5, class: "dot" }));
  const group = add(svg, "g");
  dots([-80, -40, 40, 80].map((off) => [centre.x + off, 526]));
  const localizer = add(group, "path", { d: `M${centre.x} 516 l14 10 l-14 10 l-14 -10 z`, class: "bug filled", "data-value": "localizer" });
  const slope = add(svg, "g");
  [-80, -40, 40, 80].forEach((off) => add(slope, "circle", { cx: 427, cy: centre.y + off, r: 5, class: "dot" }));
  const path = add(slope, "path", { d: `M427 ${centre.y - 14} l10 14 l-10 14 l-10 -14 z`, class: "bug filled" });
  return (r) => {
    show(group, r["NavRadios(1).ToFrom"] !== 0);
    move(localizer, (clamp(r["NavRadios(1).LocNeedle"], -127, 127) / 127) * 84, 0);
    show(slope, r["NavRadios(1).GsFlag"] !== 0);
    move(path, 0, (clamp(r["NavRadios(1).GsNeedle"], -127, 127) / 127) * 84);
  };
}

function heights(svg) {
  const radio = add(svg, "text", { x: centre.x, y: 500, class: "radio", "data-value": "radio-altitude" }, "");
  const minimums = add(svg, "text", { x: 434, y: 534, class: "minimums-text", "data-value": "minimums" }, "");
  const marker = add(svg, "text", { x: 418, y: 150, class: "marker" }, "");
  const names = ["OuterMarker", "MiddleMarker", "InnerMarker"];
  return (r) => {
    write(radio, r.RadioAltitude <= 2500 ? String(r.RadioAltitude) : "");
    write(minimums, r.Minimums > 0 ? `MINS ${r.Minimums}` : "");
    put(radio, "class", r.Minimums > 0 && r.RadioAltitude < r.Minimums ? "radio amber" : "radio");
    const heard = names.findIndex((name) => r[`NavRadios(1).${name}`] !== 0);
    write(marker, heard < 0 ? "" : ["OM", "MM", "IM"][heard]);
  };
}

export function pfd(host) {
  const svg = picture(host, width, height);
  const parts = [attitude, speed, altitude, verticalSpeed, heading, deviation, heights, modes].map((make) => make(svg));
  return (record, now_ms) => parts.forEach((draw) => draw(record, now_ms));
}

// For those who hear the page: name and value of what the picture shows.
export function pfdValues(r) {
  const modesNow = [r.ATEngagedMode, r.RollEngagedMode, r.PitchEngagedMode].map(modeText).filter(Boolean);
  return {
    Airspeed: `${Math.round(r.Ias)} knots, selected ${Math.round(r.apMcpAirSpeed)}`,
    Altitude: `${Math.round(r.AircraftAltitude)} feet, selected ${Math.round(selectedAltitude(r))}`,
    "Vertical speed": `${Math.round(r.VerticalSpeed / 50) * 50} feet per minute`,
    Heading: `${degreesText(r.MagHeading)} magnetic, selected ${degreesText(r.ApHeadingSim)}`,
    Pitch: `${r.Pitch.toFixed(0)} degrees`,
    Bank: `${Math.abs(bankOf(r)).toFixed(0)} degrees ${bankOf(r) >= 0 ? "right" : "left"}`,
    Modes: `${modeText(r.AutopilotMode)}; ${modesNow.join(", ") || "none"}`,
  };
}
