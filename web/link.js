// The connection to vorlent-web: keeps the newest record, and comes back by itself.

const retry_ms = 500;
const silence_ms = 400; // with the check below it shows within half a second
const check_ms = 50;

export class Link {
  record = null;
  live = false;
  #socket = null;
  #heard_ms = -Infinity;
  #events;

  // events: {onState(live, why), onPlan(plan), onAircraft(aircraft), onNotice(text), onRefused(text)}
  constructor(events) {
    this.#events = events;
    this.#open();
    setInterval(() => this.#watch(), check_ms);
  }

  // True when it left; commands are for a live link only.
  send(command) {
    if (!this.live || this.#socket.readyState !== WebSocket.OPEN) return false;
    this.#socket.send(command);
    return true;
  }

  #open() {
    const socket = new WebSocket(`ws://${location.host}/live`);
    this.#socket = socket;
    socket.onmessage = (event) => this.#take(JSON.parse(event.data));
    socket.onclose = () => setTimeout(() => this.#open(), retry_ms);
  }

  #take(message) {
    if (message.record || message.changes) this.#heard();
    if (message.record) this.record = message.record;
    else if (message.changes && this.record) Object.assign(this.record, message.changes);
    else if (message.plan) this.#events.onPlan(message.plan);
    else if (message.aircraft) this.#events.onAircraft(message.aircraft);
    else if (message.notice) this.#events.onNotice(message.notice);
    else if (message.refused) this.#events.onRefused(message.refused);
  }

  #heard() {
    this.#heard_ms = performance.now();
    if (!this.live) this.#change(true);
  }

  #watch() {
    if (this.live && performance.now() - this.#heard_ms > silence_ms) this.#change(false);
  }

  #change(live) {
    this.live = live;
    const open = this.#socket.readyState === WebSocket.OPEN;
    this.#events.onState(live, open ? "server" : "page");
  }
}
