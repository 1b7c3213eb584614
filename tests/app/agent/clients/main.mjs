// Every official client, in every way of the protocol, through the same scenario: main.mjs PROGRAM
import {mkdtempSync, rmSync} from "node:fs";
import {tmpdir} from "node:os";
import {join} from "node:path";

import {Client as HandshakeClient} from "@modelcontextprotocol/sdk/client/index.js";
import {StdioClientTransport as HandshakeTransport} from "@modelcontextprotocol/sdk/client/stdio.js";
import {Client} from "@modelcontextprotocol/client";
import {StdioClientTransport} from "@modelcontextprotocol/client/stdio";

import {play} from "./scenario.mjs";

const program = process.argv[2];
const implementation = {name: "quillmere-tests", version: "1.0.0"};
const newer = mode => new Client(implementation, {versionNegotiation: {mode}});

const clients = [
  ["sdk 1.x, handshake", () => new HandshakeClient(implementation), HandshakeTransport],
  ["client 2.x, handshake", () => newer("legacy"), StdioClientTransport],
  ["client 2.x, probing", () => newer("auto"), StdioClientTransport],
  ["client 2.x, stateless", () => newer({pin: "2026-07-28"}), StdioClientTransport],
];

for (const [name, make, Transport] of clients) {
  const directory = mkdtempSync(join(tmpdir(), "quillmere-client-"));
  try {
    const client = make();
    client.onerror = error => { throw error; };
    // Versions of the state are kept there too, and not with those of whoever runs this.
    process.env.XDG_STATE_HOME = join(directory, "kept");
    const transport = new Transport({
      command: program, args: ["--directory", directory, "agent", "serve"], env: process.env,
    });
    await client.connect(transport);
    await play(name, client, program, directory);
    await client.close();
    console.log(`${name}: done`);
  } finally {
    rmSync(directory, {recursive: true, force: true});
  }
}
