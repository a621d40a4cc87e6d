// Chooses the scripted answer to a request. A prompt names its script as "script:NAME"; the steps of the script
// are the assistant's messages after that prompt, one after the other. Nothing is remembered between requests,
// so that a repeated request gets the same answer.

// Answers what no script foresees, such as the client's own prompt when a background command has ended.
const unscripted = { text: 'Noted.' };

/// The script's name and its step for this request.
export function chooseStep(scripts, body) {
    if (!body.tools?.length) return { name: '(side call)', step: { text: sideAnswer(body) } };
    const { name, step } = scriptedStep(scripts, body);
    return { name, step: filledIn(step, body) };
}

/// Requests without tools are the client's own small questions (titles, summaries), not a turn of the agent. Where
/// it wants an object, it gets one with a text under each key.
function sideAnswer(body) {
    const keys = Object.keys(body.output_config?.format?.schema?.properties ?? {});
    return keys.length ? JSON.stringify(Object.fromEntries(keys.map((key) => [key, 'Stand-in']))) : 'ok';
}

/// What a script can't know beforehand: the name that the client makes up for its plan file, the id that it gives
/// to a scheduled task, and a schedule that is due soon. The client tells the model of the first two.
function filledIn(step, body) {
    const said = JSON.stringify(body);
    const planFile = said.match(/[^\s"`]+\/\.claude\/plans\/[\w-]+\.md/)?.[0];
    const scheduled = [...said.matchAll(/Scheduled (?:one-shot|recurring) \w+ ([0-9a-f]+)/g)].at(-1)?.[1];
    return JSON.parse(
        JSON.stringify(step)
            .replaceAll('{plan file}', planFile ?? '{no plan file}')
            .replaceAll('{last scheduled}', scheduled ?? '{nothing scheduled}')
            .replaceAll('{soon}', soon()),
    );
}

/// The minute after the next one as a schedule: far enough away to be seen waiting for.
function soon() {
    const time = new Date(Date.now() + 120_000);
    return `${time.getMinutes()} ${time.getHours()} ${time.getDate()} ${time.getMonth() + 1} *`;
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
