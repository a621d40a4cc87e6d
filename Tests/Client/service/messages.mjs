// A step of a script as an answer of the Messages API: whole, or as a stream of server-sent events.

const usage = { input_tokens: 10, output_tokens: 10, cache_creation_input_tokens: 0, cache_read_input_tokens: 0 };
let lastNumber = 0;

function nextId(prefix) {
    lastNumber += 1;
    return `${prefix}_standin${process.pid}x${lastNumber}`;
}

function contentOf(step) {
    const text = step.text ? [{ type: 'text', text: step.text }] : [];
    const tools = (step.tools ?? []).map(({ name, input }) => ({ type: 'tool_use', id: nextId('toolu'), name, input }));
    return [...text, ...tools];
}

function stopReason(step) {
    return step.tools?.length ? 'tool_use' : 'end_turn';
}

export function asMessage(body, step) {
    return {
        id: nextId('msg'),
        type: 'message',
        role: 'assistant',
        model: body.model,
        content: contentOf(step),
        stop_reason: stopReason(step),
        stop_sequence: null,
        usage,
    };
}

const firstWords = { type: 'text', text: 'One moment.' };

/// Streams the step; one with a `hold` says a first word and stops until its gate opens.
export async function asStream(response, body, step, gates) {
    const send = (event) => response.write(`event: ${event.type}\ndata: ${JSON.stringify(event)}\n\n`);
    const message = asMessage(body, step);
    if (step.hold) message.content.unshift(firstWords);
    response.writeHead(200, { 'content-type': 'text/event-stream', 'cache-control': 'no-cache' });
    send({ type: 'message_start', message: { ...message, content: [], stop_reason: null } });
    if (step.hold) {
        sendBlock(send, message.content[0], 0);
        const pings = setInterval(() => send({ type: 'ping' }), 1000);
        await gates.pass(step.hold, response);
        clearInterval(pings);
    }
    const sent = step.hold ? 1 : 0;
    message.content.slice(sent).forEach((block, index) => sendBlock(send, block, sent + index));
    send({ type: 'message_delta', delta: { stop_reason: message.stop_reason, stop_sequence: null }, usage });
    send({ type: 'message_stop' });
    response.end();
}

function sendBlock(send, block, index) {
    const isText = block.type === 'text';
    const empty = isText ? { ...block, text: '' } : { ...block, input: {} };
    const delta = isText
        ? { type: 'text_delta', text: block.text }
        : { type: 'input_json_delta', partial_json: JSON.stringify(block.input) };
    send({ type: 'content_block_start', index, content_block: empty });
    send({ type: 'content_block_delta', index, delta });
    send({ type: 'content_block_stop', index });
}
