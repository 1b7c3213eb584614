// What an agent does in a day: looks, asks, waits, and gets its answer.
import assert from "node:assert/strict";
import {execFileSync} from "node:child_process";

const tools = ["get_focus_state", "ask_question", "get_answer", "wait_for_answer", "list_questions"];

export async function play(name, client, program, directory) {
  const types = (...words) => execFileSync(program, ["--directory", directory, ...words], {encoding: "utf8"});
  const call = async (tool, args = {}) => {
    const result = await client.callTool({name: tool, arguments: args});
    assert.ok(!result.isError, JSON.stringify(result));
    assert.deepEqual(JSON.parse(result.content[0].text), result.structuredContent);
    return result.structuredContent;
  };

  assert.equal(client.getServerVersion().name, "quillmere");
  assert.match(client.getInstructions(), /interruptible/);
  // The clients hold what tools return against the output schemas that they are given here.
  assert.deepEqual((await client.listTools()).tools.map(tool => tool.name), tools);
  const {resources} = await client.listResources();
  assert.deepEqual(resources.map(resource => resource.uri), ["quillmere://agent/state", "quillmere://agent/schema"]);
  assert.deepEqual((await client.listResourceTemplates()).resourceTemplates, []);

  types("plan", "--start", "--outcome", "A chapter", "--focus", "25m");
  types("focus", "--outcome", "One page", "--energy", "4", "--morale", "3");
  const state = JSON.parse((await client.readResource({uri: "quillmere://agent/state"})).contents[0].text);
  assert.equal(state.interruptible, false);
  assert.equal((await call("get_focus_state")).workflow_state, "focusing");

  const {id, interruptible} = await call("ask_question", {question: "Shall the tests run at night?\n– ja/nein 🙂"});
  assert.equal(interruptible, false);
  assert.match(types("questions"), /^1\.  Shall the tests run at night\? – ja\/nein 🙂/);
  assert.equal((await call("get_answer", {id})).status, "open");
  assert.equal((await call("wait_for_answer", {id, timeout_seconds: 0})).status, "open");
  assert.deepEqual((await call("list_questions")).questions.map(question => question.id), [id]);

  const waiting = call("wait_for_answer", {id, timeout_seconds: 50});
  await call("get_focus_state");
  types("answer", "1", `Yes, says ${name}`);
  assert.equal((await waiting).answer, `Yes, says ${name}`);
  assert.equal((await call("get_answer", {id})).status, "answered");

  const refused = await client.callTool({name: "get_answer", arguments: {id: "1"}});
  assert.ok(refused.isError);
  await assert.rejects(client.readResource({uri: "quillmere://agent/none"}));
}
