// Drawing with SVG: elements are made once and moved afterwards.

const namespace = "http://www.w3.org/2000/svg";

// An element with its attributes, in its parent. `text` becomes its content.
export function add(parent, name, attributes = {}, text = null) {
  const element = document.createElementNS(namespace, name);
  for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
  if (text !== null) element.textContent = text;
  parent.append(element);
  return element;
}

export function picture(host, width, height) {
  return add(host, "svg", { viewBox: `0 0 ${width} ${height}`, "aria-hidden": "true", focusable: "false" });
}

let clips = 0;

// A group that shows only what lies within the rectangle.
export function clipped(parent, x, y, width, height) {
  const id = `clip-${++clips}`;
  add(add(parent, "clipPath", { id }), "rect", { x, y, width, height });
  return add(parent, "g", { "clip-path": `url(#${id})` });
}

// Only what is new is written: most values of a frame are those of the frame before.
export function put(element, name, value) {
  const text = String(value);
  if (element.getAttribute(name) !== text) element.setAttribute(name, text);
}

export function write(element, text) {
  if (element.textContent !== text) element.textContent = text;
}

export function show(element, visible) {
  put(element, "visibility", visible ? "visible" : "hidden");
}

export const move = (element, x, y) => put(element, "transform", `translate(${x.toFixed(2)} ${y.toFixed(2)})`);
export const turn = (element, degrees, x, y) => put(element, "transform", `rotate(${degrees.toFixed(2)} ${x} ${y})`);

const radians = (degrees) => (degrees * Math.PI) / 180;

// The point of a circle at a direction, 0 up, clockwise.
export function onCircle(x, y, radius, degrees) {
  return [x + radius * Math.sin(radians(degrees)), y - radius * Math.cos(radians(degrees))];
}

export function arc(x, y, radius, from, to) {
  const [x1, y1] = onCircle(x, y, radius, from);
  const [x2, y2] = onCircle(x, y, radius, to);
  const large = Math.abs(to - from) > 180 ? 1 : 0;
  return `M${x1.toFixed(2)} ${y1.toFixed(2)} A${radius} ${radius} 0 ${large} ${to > from ? 1 : 0} ${x2.toFixed(2)} ${y2.toFixed(2)}`;
}
