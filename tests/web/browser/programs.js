// Simulator, server and vorlent-web as processes in a folder of their own, as a builder would start them.

import { spawn } from "node:child_process";
import { cpSync, linkSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createSocket } from "node:dgram";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { once } from "node:events";

// What is waited for has to come within this.
export const patience_ms = 30_000;

async function freeUdpPort() {
  const socket = createSocket("udp4");
  socket.bind(0, "127.0.0.1");
  await once(socket, "listening");
  const { port } = socket.address();
  socket.close();
  return port > 32000 ? 20000 + (port % 12000) : port; // the server's ports are signed 16-bit numbers
}

export class Program {
  said = "";
  #process;
  #waiting = [];

  constructor(folder, name, args) {
    const environment = { ...process.env, VORLENT_BUS: join(folder, "bus"), LC_ALL: "C" };
    this.#process = spawn(join(folder, name), args, { env: environment, stdio: ["pipe", "pipe", "pipe"] });
    for (const stream of [this.#process.stdout, this.#process.stderr])
      stream.on("data", (data) => {
        this.said += data;
        this.#waiting = this.#waiting.filter((look) => !look());
      });
    this.ended = once(this.#process, "exit");
    this.id = this.#process.pid;
  }

  // The first match; fails with what it said instead.
  async says(pattern) {
    return new Promise((resolve, reject) => {
      const late = setTimeout(() => reject(new Error(`no ${pattern} in:\n${this.said}`)), patience_ms);
      const look = () => {
        const match = pattern.exec(this.said);
        if (!match) return false;
        clearTimeout(late);
        resolve(match);
        return true;
      };
      if (!look()) this.#waiting.push(look);
    });
  }

  async end(signal = "SIGTERM") {
    if (this.#process.exitCode === null && this.#process.signalCode === null) {
      this.#process.kill(signal);
      await this.ended;
    }
  }
}

export class Cockpit {
  folder = mkdtempSync(join(tmpdir(), "vorlent-web-"));
  share = join(this.folder, "Network/display/Tarnwick");
  #programs = [];

  constructor(programs, data) {
    for (const name of ["vorlent-sim", "vorlentd", "vorlent-web"]) {
      try { linkSync(join(programs, name), join(this.folder, name)); }
      catch { cpSync(join(programs, name), join(this.folder, name)); }
    }
    cpSync(data, this.folder, { recursive: true });
    // It is shared already, so that the server does not ask the machine's own Samba for it.
    mkdirSync(join(this.folder, "Network/127.0.0.1/Vorlent"), { recursive: true });
  }

  start(name, ...args) {
    const program = new Program(this.folder, name, args);
    this.#programs.push(program);
    return program;
  }

  async startFlight() {
    this.port = await freeUdpPort();
    const settings = join(this.folder, "Vorlent.ini");
    writeFileSync(settings, readFileSync(settings, "latin1").replace(/^Port=.*$/m, `Port=${this.port}`)
      .replace(/^Clients=.*$/m, "Clients=2").replace(/^;LocalIp=.*$/m, "LocalIp=127.0.0.1"), "latin1");
    await this.start("vorlent-sim", "--start", "level").says(/ready/);
    await this.startServer();
  }

  async startServer() {
    this.server = this.start("vorlentd");
    await this.server.says(/1\| OK/);
  }

  // The address of its page.
  async startWeb(...options) {
    this.web = this.start("vorlent-web", "127.0.0.1", String(this.port), "--name", "display", "--share", this.share, ...options);
    return (await this.web.says(/page: (\S+)/))[1];
  }

  async end() {
    for (const program of this.#programs.reverse()) await program.end();
    rmSync(this.folder, { recursive: true, force: true });
  }
}
