// A small stand-in of the model service: speaks enough of the Messages API for the agent client, on 127.0.0.1
// only, and answers from a script instead of a model.
//
//   node main.mjs SCRIPTS LOG
//
// SCRIPTS is a JSON file (see ../README.md); LOG gets one line for each request. The first
// line of standard output is the port. The process ends when its standard input does, and so with its driver.
import { appendFileSync, readFileSync } from 'node:fs';
import { createServer } from 'node:http';
import { Gates } from './gates.mjs';
import { chooseStep } from './scripts.mjs';
import { asMessage, asStream } from './messages.mjs';

const [scriptsPath, logPath] = process.argv.slice(2);
const scripts = JSON.parse(readFileSync(scriptsPath, 'utf8'));
const gates = new Gates();

function log(line) {
    appendFileSync(logPath, `${new Date().toISOString()} ${line}\n`);
}

async function bodyOf(request) {
    const chunks = [];
    for await (const chunk of request) chunks.push(chunk);
    const text = Buffer.concat(chunks).toString('utf8');
    return text ? JSON.parse(text) : {};
}

function sendJson(response, value) {
    response.writeHead(200, { 'content-type': 'application/json' });
    response.end(JSON.stringify(value));
}

async function answerMessages(request, response) {
    const body = await bodyOf(request);
    const { name, step } = chooseStep(scripts, body);
    log(`answers ${name} to ${body.model}: ${JSON.stringify(step)}`);
    if (body.stream) {
        await asStream(response, body, step, gates);
    } else {
        sendJson(response, asMessage(body, step));
    }
}

/// What the driver asks: which gates are being waited at, and to open one.
function answerDriver(url, response) {
    if (url.pathname === '/driver/release') gates.release(url.searchParams.get('gate'));
    sendJson(response, { held: gates.held() });
}

async function answer(request, response) {
    const url = new URL(request.url, 'http://127.0.0.1');
    if (url.pathname.startsWith('/driver/')) return answerDriver(url, response);
    if (url.pathname === '/v1/messages') return answerMessages(request, response);
    log(`${request.method} ${url.pathname}`);
    await bodyOf(request).catch(() => ({}));
    return sendJson(response, url.pathname.endsWith('/count_tokens') ? { input_tokens: 10 } : {});
}

const server = createServer((request, response) => {
    answer(request, response).catch((error) => {
        log(`failed: ${error.stack}`);
        response.destroy();
    });
});
server.listen(0, '127.0.0.1', () => console.log(server.address().port));
process.stdin.resume();
process.stdin.on('end', () => process.exit(0));
