// What vorlent-web costs: node bench/web/cost.js PROGRAMS DATA. Its processor time while 8 browsers'
// worth of connections take 20 records a second each, for 30 s of level flight.

import { connect } from "node:net";
import { readFileSync } from "node:fs";
import { Cockpit } from "../../tests/web/browser/programs.js";

const browsers = 8, seconds = 30;
const ticksPerSecond = 100; // of /proc/PID/stat

function processorTime_s(id) {
  const fields = readFileSync(`/proc/${id}/stat`, "utf8").split(") ")[1].split(" ");
  return (Number(fields[11]) + Number(fields[12])) / ticksPerSecond;
}

// A connection that takes what comes; frames of up to 125 bytes, and longer ones, begin with 0x81.
function take(port, counts) {
  const socket = connect(port, "127.0.0.1");
  socket.write(`GET /live HTTP/1.1\r\nHost: localhost:${port}\r\nOrigin: http://localhost:${port}\r\nConnection: Upgrade\r\n` +
    "Upgrade: websocket\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
  socket.on("data", (data) => {
    counts.bytes += data.length;
    counts.records += data.toString("latin1").split('{"changes"').length - 1;
  });
  return socket;
}

const [, , programs, data] = process.argv;
const cockpit = new Cockpit(programs, data);
try {
  await cockpit.startFlight();
  const port = Number(new URL(await cockpit.startWeb("--web-port", "0")).port);
  const counts = { bytes: 0, records: 0 };
  const sockets = Array.from({ length: browsers }, () => take(port, counts));
  await new Promise((resolve) => setTimeout(resolve, 2000));
  const before = processorTime_s(cockpit.web.id), { bytes, records } = counts, from_ms = Date.now();
  await new Promise((resolve) => setTimeout(resolve, seconds * 1000));
  const took_s = (Date.now() - from_ms) / 1000;
  const share = ((processorTime_s(cockpit.web.id) - before) / took_s) * 100;
  console.log(`| vorlent-web, ${browsers} browsers, ${((counts.records - records) / took_s / browsers).toFixed(1)} records a second each, ` +
    `${((counts.bytes - bytes) / took_s / 1024).toFixed(0)} KB/s in all: CPU | - | ${share.toFixed(2)} % of a core | ≤ 5 % |`);
  sockets.forEach((socket) => socket.destroy());
} finally {
  await cockpit.end();
}
