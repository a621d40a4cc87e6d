// Chooses the scripted answer to a request. A prompt names its script as "script:NAME"; the steps of the script
// are the assistant's messages after that prompt, one after the other. Nothing is remembered between requests,
// so that a repeated request gets the same answer.

// Answers what no script foresees, such as the client's own prompt when a background command has ended.
const unscripted = { text: 'Noted.' };

/// The script's name and its step for this request.
export function chooseStep(scripts, body) {
    if (!body.tools?.length) return { name: '(side call)', step: { text: sideAnswer(body) } };
    const { name, step } = scriptedStep(scripts, body);
    return { name, step: withPlanFile(step, body) };
}

/// Requests without tools are the client's own small questions (titles, summaries), not a turn of the agent. Where
/// it wants an object, it gets one with a text under each key.
function sideAnswer(body) {
    const keys = Object.keys(body.output_config?.format?.schema?.properties ?? {});
    return keys.length ? JSON.stringify(Object.fromEntries(keys.map((key) => [key, 'Stand-in']))) : 'ok';
}

/// The client makes up the name of its plan file and tells the model; a step calls it {plan file}.
function withPlanFile(step, body) {
    const path = JSON.stringify(body).match(/[^\s"`]+\/\.claude\/plans\/[\w-]+\.md/)?.[0] ?? '{no plan file}';
    return JSON.parse(JSON.stringify(step).replaceAll('{plan file}', path));
}

function scriptedStep(scripts, body) {
    const { prompt, stepsTaken } = lastPrompt(body.messages ?? []);
    const name = [...prompt.matchAll(/\bscript:([a-z-]+)/g)].at(-1)?.[1];
    if (!name) return { name: '(no script)', step: unscripted };
    const steps = scripts[name];
    if (!steps) return { name, step: { text: `There is no script named ${name}.` } };
    return { name, step: steps[stepsTaken] ?? unscripted };
}

/// The latest text that stands for a prompt, and how many answers have followed it.
function lastPrompt(messages) {
    let stepsTaken = 0;
    for (const message of [...messages].reverse()) {
        if (message.role === 'assistant') {
            stepsTaken += 1;
            continue;
        }
        const prompt = message.role === 'user' ? promptOf(message.content) : '';
        if (prompt) return { prompt, stepsTaken };
    }
    return { prompt: '', stepsTaken };
}

function promptOf(content) {
    const blocks = typeof content === 'string' ? [{ type: 'text', text: content }] : content;
    return blocks
        .filter((block) => block.type === 'text')
        .map((block) => block.text.replace(/<system-reminder>[\s\S]*?<\/system-reminder>/g, '').trim())
        .join('\n')
        .trim();
}
