// Engines, fuel, flaps and gear.

import { add, arc, onCircle, picture, put, show, write } from "./svg.js";
import { blocksOf, clamp, engine, travel_percent } from "./values.js";

const width = 600, height = 640;
const sweepFrom = 90, sweep = 210; // of a gauge: from the right, clockwise

// A round gauge; its red line is at `red`, its end at `full`.
function gauge(svg, x, y, radius, full, red, name) {
  const angle = (value) => sweepFrom + (clamp(value, 0, full) / full) * sweep;
  const fill = add(svg, "path", { class: "gauge-fill" });
  add(svg, "path", { d: arc(x, y, radius, sweepFrom, sweepFrom + sweep), class: "gauge" });
  const [x1, y1] = onCircle(x, y, radius - 4, angle(red));
  const [x2, y2] = onCircle(x, y, radius + 12, angle(red));
  add(svg, "line", { x1, y1, x2, y2, class: "red-line" });
  const bug = add(svg, "path", { class: "gauge-bug" });
  const needle = add(svg, "line", { x1: x, y1: y, class: "needle" });
  add(svg, "rect", { x: x - 2, y: y - radius * 0.75, width: radius * 1.2, height: radius * 0.56, class: "gauge-box" });
  const text = add(svg, "text", { x: x + radius * 1.1, y: y - radius * 0.31, class: "gauge-text", "data-value": name }, "");
  text.style.fontSize = `${radius * 0.43}px`;
  return (value, digits, target = 0) => {
    const [nx, ny] = onCircle(x, y, radius, angle(value));
    put(needle, "x2", nx.toFixed(1));
    put(needle, "y2", ny.toFixed(1));
    put(fill, "d", `${arc(x, y, radius, sweepFrom, angle(value))} L${x} ${y} Z`);
    write(text, value.toFixed(digits));
    put(text, "class", value > red ? "gauge-text red" : "gauge-text");
    show(bug, target > 0);
    const [bx, by] = onCircle(x, y, radius, angle(target));
    put(bug, "d", `M${bx.toFixed(1)} ${by.toFixed(1)} l12 -7 v14 z`);
    put(bug, "transform", `rotate(${(angle(target) - 90).toFixed(1)} ${bx.toFixed(1)} ${by.toFixed(1)})`);
  };
}

const rows = [
  ["N2", (r, n) => engine(r, n, "N2").toFixed(1)],
  ["FF", (r, n) => (engine(r, n, "FuelFlow") / 1000).toFixed(2)],
  ["OIL P", (r, n) => engine(r, n, "OilPressure").toFixed(0)],
  ["OIL T", (r, n) => engine(r, n, "OilTemp").toFixed(0)],
  ["OIL Q", (r, n) => engine(r, n, "OilQuantity").toFixed(0)],
  ["VIB", (r, n) => engine(r, n, "Vibration").toFixed(1)],
];

function engineColumn(svg, number, count) {
  const scale = count > 2 ? 0.62 : 1;
  const step = 400 / count;
  const left = 10 + (number - 1) * step;
  const x = left + step * 0.42, radius = 62 * scale;
  add(svg, "text", { x, y: 22, class: "label" }, `ENG ${number}`);
  const n1 = gauge(svg, x, 108, radius, 110, 104, `n1-${number}`);
  const egt = gauge(svg, x, 262, radius * 0.9, 1000, 950, `egt-${number}`);
  const cells = rows.map((row, i) => add(svg, "text", { x, y: 372 + i * 32, class: "value boxed" }, ""));
  return (r) => {
    n1(engine(r, number, "N1"), 1, engine(r, number, "N1Target"));
    egt(engine(r, number, "Egt"), 0);
    rows.forEach(([, text], i) => write(cells[i], text(r, number)));
  };
}

function engineColumns(svg) {
  let count = 0, group = null, columns = [];
  const rebuild = (next) => {
    count = next;
    group?.remove();
    group = add(svg, "g");
    columns = Array.from({ length: count }, (_, i) => engineColumn(group, i + 1, count));
    const middle = count === 2 ? 194 : 396;
    add(group, "text", { x: middle, y: 176, class: "label" }, "N1");
    add(group, "text", { x: middle, y: 322, class: "label" }, "EGT");
    rows.forEach(([name], i) => add(group, "text", { x: middle, y: 372 + i * 32, class: "label" }, name));
  };
  return (r) => {
    if (blocksOf(r) !== count) rebuild(blocksOf(r));
    columns.forEach((draw) => draw(r));
  };
}

const tanks = [["L", "LeftMain"], ["CTR", "Centre"], ["R", "RightMain"]];

function fuel(svg) {
  add(svg, "text", { x: 510, y: 22, class: "label" }, "FUEL");
  const bars = tanks.map(([name, key], i) => {
    const x = 440 + i * 52;
    add(svg, "rect", { x, y: 40, width: 36, height: 120, class: "bar-frame" });
    add(svg, "text", { x: x + 18, y: 200, class: "label" }, name);
    const bar = add(svg, "rect", { x: x + 2, width: 32, class: "bar" });
    const text = add(svg, "text", { x: x + 18, y: 180, class: "small", "data-value": `fuel-${key}` }, "");
    return { key, bar, text };
  });
  add(svg, "text", { x: 510, y: 232, class: "label" }, "TOTAL LB");
  const total = add(svg, "text", { x: 510, y: 260, class: "value big", "data-value": "fuel-total" }, "");
  return (r) => {
    for (const { key, bar, text } of bars) {
      const percent = clamp(r[`FuelTanks(${key})`], 0, 100);
      put(bar, "height", (percent * 1.18).toFixed(1));
      put(bar, "y", (159 - percent * 1.18).toFixed(1));
      write(text, `${percent.toFixed(0)}%`);
    }
    write(total, Math.round(r.FuelTotalLb).toLocaleString("en"));
  };
}

function flaps(svg) {
  add(svg, "text", { x: 448, y: 310, class: "label" }, "FLAPS");
  add(svg, "rect", { x: 436, y: 322, width: 24, height: 130, class: "bar-frame" });
  const position = add(svg, "rect", { x: 438, width: 20, y: 324, class: "bar" });
  const lever = add(svg, "path", { d: "M464 0 l12 -7 v14 z", class: "gauge-bug" });
  const text = add(svg, "text", { x: 448, y: 476, class: "value", "data-value": "flaps" }, "");
  return (r) => {
    const percent = clamp(travel_percent(r.FlapsPosition), 0, 100);
    put(position, "height", (percent * 1.26).toFixed(1));
    put(lever, "transform", `translate(0 ${(324 + clamp(travel_percent(r["StateValues(1)"]), 0, 100) * 1.26).toFixed(1)})`);
    const detent = r.FlapIncrement > 0 ? Math.round(r.FlapsPosition / r.FlapIncrement) : 0;
    write(text, percent < 0.5 ? "UP" : `${detent} / ${Math.round(percent)}%`);
  };
}

function gear(svg) {
  add(svg, "text", { x: 548, y: 310, class: "label" }, "GEAR");
  const lamps = [["GearNose", 548, 334], ["GearLeft", 522, 372], ["GearRight", 574, 372]].map(([key, x, y]) => ({
    key,
    lamp: add(svg, "rect", { x: x - 22, y: y - 12, width: 44, height: 28, rx: 4 }),
    text: add(svg, "text", { x, y: y + 8, class: "small", "data-value": key }, ""),
  }));
  const brake = add(svg, "text", { x: 548, y: 422, class: "value amber" }, "");
  const spoilers = add(svg, "text", { x: 548, y: 450, class: "value amber" }, "");
  return (r) => {
    for (const { key, lamp, text } of lamps) {
      const state = r[key] >= 16383 ? "down" : r[key] > 0 ? "moving" : "up";
      put(lamp, "class", `gear ${state}`);
      write(text, { down: "DN", moving: "···", up: "UP" }[state]);
    }
    write(brake, r["StateValues(9)"] ? "PARK BRK" : "");
    write(spoilers, travel_percent(r["StateValues(7)"]) > 1 ? "SPOILERS" : "");
  };
}

function figures(svg) {
  const items = [
    ["TAT °C", (r) => r["StateValues(12)"].toFixed(0)],
    ["OAT °C", (r) => r["StateValues(18)"].toFixed(0)],
    ["GW LB", (r) => r.GrossWeight.toLocaleString("en")],
    ["UTC", (r) => `${String(Math.floor(r.ZuluTime)).padStart(2, "0")}:${String(Math.round((r.ZuluTime % 1) * 100)).padStart(2, "0")}`],
  ];
  const cells = items.map(([name, text], i) => {
    add(svg, "text", { x: 80 + i * 146, y: 592, class: "label" }, name);
    return { text, cell: add(svg, "text", { x: 80 + i * 146, y: 620, class: "value" }, "") };
  });
  return (r) => cells.forEach(({ text, cell }) => write(cell, text(r)));
}

export function engines(host) {
  const svg = picture(host, width, height);
  const parts = [engineColumns, fuel, flaps, gear, figures].map((make) => make(svg));
  return (record) => parts.forEach((draw) => draw(record));
}

export function engineValues(r) {
  const values = {};
  for (let n = 1; n <= blocksOf(r); ++n)
    values[`Engine ${n}`] = `N1 ${engine(r, n, "N1").toFixed(1)} percent, EGT ${engine(r, n, "Egt").toFixed(0)} degrees, fuel flow ${engine(r, n, "FuelFlow").toFixed(0)} pounds per hour`;
  values.Fuel = `${Math.round(r.FuelTotalLb)} pounds`;
  values.Flaps = `${Math.round(travel_percent(r.FlapsPosition))} percent`;
  values.Gear = [r.GearNose, r.GearLeft, r.GearRight].every((leg) => leg >= 16383) ? "down" : r.GearNose > 0 ? "moving" : "up";
  return values;
}
