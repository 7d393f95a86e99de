// The navigation display: a map around the aircraft, heading up, with the plan.

import { add, clipped, move, onCircle, picture, put, show, turn, write } from "./svg.js";
import { clamp, degreesText, trueHeadingOf, wrap180, wrap360 } from "./values.js";

const width = 600, height = 640;
const own = { x: 300, y: 520 };
const radius = 400;
const ranges_NM = [5, 10, 20, 40, 80, 160, 320];
const legPoints = 8; // a leg is a great circle: drawn as so many straight pieces

const radians = (degrees) => (degrees * Math.PI) / 180;
const degrees = (radians_) => (radians_ * 180) / Math.PI;

// From one place to another on a globe: distance in nautical miles and true course.
export function wayTo(from, to) {
  const a = radians(from.latitude), b = radians(to.latitude);
  const across = radians(wrap180(to.longitude - from.longitude));
  const haversine = Math.sin((b - a) / 2) ** 2 + Math.cos(a) * Math.cos(b) * Math.sin(across / 2) ** 2;
  const east = Math.sin(across) * Math.cos(b);
  const north = Math.cos(a) * Math.sin(b) - Math.sin(a) * Math.cos(b) * Math.cos(across);
  return {
    distance: 2 * 60 * degrees(Math.asin(Math.min(1, Math.sqrt(haversine)))),
    course: wrap360(degrees(Math.atan2(east, north))),
  };
}

const vector = ({ latitude, longitude }) => {
  const a = radians(latitude), b = radians(longitude);
  return [Math.cos(a) * Math.cos(b), Math.cos(a) * Math.sin(b), Math.sin(a)];
};

// The place a part (0 to 1) of the straight line under a leg further on, seen from the globe's centre.
function between(from, to, part) {
  const a = vector(from), b = vector(to);
  const [x, y, z] = a.map((value, i) => value + (b[i] - value) * part);
  return { latitude: degrees(Math.atan2(z, Math.hypot(x, y))), longitude: degrees(Math.atan2(y, x)) };
}

function compass(svg) {
  const frame = clipped(svg, 0, 56, width, 500);
  add(frame, "circle", { cx: own.x, cy: own.y, r: radius, class: "ring" });
  add(frame, "circle", { cx: own.x, cy: own.y, r: radius / 2, class: "ring faint" });
  const card = add(frame, "g");
  for (let angle = 0; angle < 360; angle += 5) {
    const [x1, y1] = onCircle(own.x, own.y, radius, angle);
    const [x2, y2] = onCircle(own.x, own.y, radius - (angle % 10 === 0 ? 16 : 9), angle);
    add(card, "line", { x1, y1, x2, y2, class: "white-line" });
    if (angle % 30 !== 0) continue;
    const [tx, ty] = onCircle(own.x, own.y, radius - 34, angle);
    add(card, "text", { x: tx, y: ty + 2, class: "card", transform: `rotate(${angle} ${tx} ${ty})` }, angle / 10);
  }
  const bug = add(frame, "g");
  add(bug, "path", { d: `M${own.x} ${own.y - radius} l-8 -14 h-8 v18 h32 v-18 h-8 z`, class: "bug" });
  add(bug, "line", { x1: own.x, x2: own.x, y1: own.y - 30, y2: own.y - radius, class: "bug dashed" });
  add(svg, "line", { x1: own.x, x2: own.x, y1: own.y - radius, y2: own.y - 40, class: "track" });
  const rangeText = add(svg, "text", { x: own.x - 10, y: own.y - radius / 2 - 6, class: "value range-text" }, "");
  return (r, range) => {
    turn(card, -r.MagHeading, own.x, own.y);
    turn(bug, wrap180(r.ApHeadingSim - r.MagHeading), own.x, own.y);
    write(rangeText, String(range / 2));
  };
}

// Where a place is in the picture; north of it is turned by the heading.
function projection(r, range) {
  const here = { latitude: r.Latitude, longitude: r.Longitude };
  const heading = trueHeadingOf(r);
  return (place) => {
    const way = wayTo(here, place);
    return onCircle(own.x, own.y, (way.distance / range) * radius, way.course - heading);
  };
}

function planLayer(svg) {
  const layer = clipped(svg, 0, 60, width, 580);
  const line = add(layer, "path", { class: "route" });
  const active = add(layer, "path", { class: "route active" });
  const points = add(layer, "g");
  let plan = { route: [], profile: [] };
  let marks = [];
  const rebuild = () => {
    points.replaceChildren();
    const mark = (place, shape) => {
      const group = add(points, "g", { class: shape });
      if (shape === "point") add(group, "circle", { r: 6 });
      else add(group, "path", { d: "M0 -13 L3.5 -3.5 L13 0 L3.5 3.5 L0 13 L-3.5 3.5 L-13 0 L-3.5 -3.5 Z" });
      add(group, "text", { x: 16, y: 16 }, place.name);
      return { place, group };
    };
    marks = [...plan.route.map((place) => mark(place, "waypoint")), ...plan.profile.map((place) => mark(place, "point"))];
  };
  const pathOf = (legs, at) => legs.map(([from, to]) => {
    const pieces = Array.from({ length: legPoints + 1 }, (_, i) => at(between(from, to, i / legPoints)));
    return pieces.map(([x, y], i) => `${i ? "L" : "M"}${clamp(x, -9999, 9999).toFixed(1)} ${clamp(y, -9999, 9999).toFixed(1)}`).join("");
  }).join("");
  const draw = (r, range) => {
    const at = projection(r, range);
    const { route } = plan;
    const legs = route.slice(1).map((to, i) => [route[i], to]);
    // The file's leg to fly is its first; the record may already name a later waypoint.
    const index = Math.max(0, legs.findIndex(([, to]) => to.name === r.ActiveWpt));
    put(line, "d", pathOf(legs.filter((_, i) => i !== index), at));
    put(active, "d", pathOf(legs.slice(index, index + 1), at));
    for (const { place, group } of marks) {
      const [x, y] = at(place);
      move(group, clamp(x, -9999, 9999), clamp(y, -9999, 9999));
      put(group, "data-active", place.name === r.ActiveWpt);
    }
  };
  return { draw, take: (next) => { plan = next; rebuild(); } };
}

// Without a plan's files the record still tells where its waypoint is.
function direct(svg) {
  const line = add(svg, "line", { x1: own.x, y1: own.y, class: "route active" });
  return (r, range, planned) => {
    show(line, !planned && r.ActiveWpt !== "");
    const [x, y] = onCircle(own.x, own.y, (r.DxToNextWaypoint / range) * radius, r.CrsToNextWaypoint - trueHeadingOf(r));
    put(line, "x2", clamp(x, -9999, 9999).toFixed(1));
    put(line, "y2", clamp(y, -9999, 9999).toFixed(1));
  };
}

function texts(svg) {
  add(svg, "rect", { x: 0, y: 0, width, height: 56, class: "blank" });
  add(svg, "text", { x: 8, y: 26, class: "label start" }, "GS");
  const groundSpeed = add(svg, "text", { x: 38, y: 26, class: "value start", "data-value": "ground-speed" }, "");
  add(svg, "text", { x: 88, y: 26, class: "label start" }, "TAS");
  const tas = add(svg, "text", { x: 128, y: 26, class: "value start" }, "");
  const wind = add(svg, "text", { x: 8, y: 52, class: "value start", "data-value": "wind" }, "");
  const arrow = add(svg, "g");
  add(arrow, "path", { d: "M0 -20 V18 M-7 8 L0 20 L7 8", class: "wind" });
  add(svg, "path", { d: "M248 4 V44 H352 V4", class: "hollow" });
  add(svg, "text", { x: 232, y: 34, class: "label end green" }, "HDG");
  const heading = add(svg, "text", { x: 300, y: 36, class: "heading-text", "data-value": "nd-heading" }, "");
  add(svg, "text", { x: 368, y: 34, class: "label start green" }, "MAG");
  const waypoint = add(svg, "text", { x: 586, y: 24, class: "waypoint-name end", "data-value": "waypoint" }, "");
  const distance = add(svg, "text", { x: 586, y: 48, class: "value end", "data-value": "waypoint-distance" }, "");
  return (r) => {
    write(groundSpeed, String(r.GroundSpeed));
    write(tas, String(r.Tas));
    const blows = r.WindSpeedKt >= 1;
    write(wind, blows ? `${degreesText(r.WindDirection)}° / ${Math.round(r.WindSpeedKt)}` : "---° / --");
    show(arrow, blows);
    put(arrow, "transform", `translate(30 86) rotate(${(r.WindDirection - trueHeadingOf(r)).toFixed(1)})`);
    write(heading, degreesText(r.MagHeading));
    write(waypoint, r.ActiveWpt);
    write(distance, r.ActiveWpt ? `${r.DxToNextWaypoint.toFixed(1)} NM` : "");
  };
}

function radios(svg) {
  const left = [568, 592, 616].map((y) => add(svg, "text", { x: 14, y, class: "radio-text start" }, ""));
  const right = [568, 592, 616].map((y) => add(svg, "text", { x: 586, y, class: "radio-text end" }, ""));
  const lines = (r, n) => {
    const dme = r[`NavRadios(${n}).DmeDistance`];
    return [`VOR ${n}`, r[`Vor${n}Id`] || r[`RadioValues(${n + 1})`].toFixed(2), dme > 0 ? `DME ${dme.toFixed(1)}` : "DME ---"];
  };
  return (r) => {
    lines(r, 1).forEach((text, i) => write(left[i], text));
    lines(r, 2).forEach((text, i) => write(right[i], text));
  };
}

export function nd(host, rangeText) {
  const svg = picture(host, width, height);
  let place = ranges_NM.indexOf(40), planned = false;
  const rose = compass(svg), way = direct(svg), layer = planLayer(svg), words = texts(svg), tuned = radios(svg);
  add(svg, "path", { d: `M${own.x} ${own.y - 26} l-18 46 h36 z`, class: "hollow strong" });
  const range = () => ranges_NM[place];
  return {
    draw(r) {
      rose(r, range());
      way(r, range(), planned);
      layer.draw(r, range());
      words(r);
      tuned(r);
    },
    takePlan(plan) {
      planned = plan.route.length > 1;
      layer.take(plan);
    },
    zoom(step) {
      place = clamp(place + step, 0, ranges_NM.length - 1);
      rangeText.value = `${range()} NM`;
    },
  };
}

export function ndValues(r) {
  return {
    "Ground speed": `${r.GroundSpeed} knots`,
    Wind: `${degreesText(r.WindDirection)} degrees, ${Math.round(r.WindSpeedKt)} knots`,
    Waypoint: r.ActiveWpt ? `${r.ActiveWpt}, ${r.DxToNextWaypoint.toFixed(1)} miles` : "none",
    Position: `${r.Latitude.toFixed(3)}, ${r.Longitude.toFixed(3)} degrees`,
  };
}
