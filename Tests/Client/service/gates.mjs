// Named gates at which an answer can be held until the driver has seen what it wants to see. A gate that was
// opened stays open.

export class Gates {
    #open = new Set();
    #waiting = new Map();

    /// The names of the gates at which an answer waits now.
    held() {
        return [...this.#waiting.keys()];
    }

    release(name) {
        this.#open.add(name);
        this.#waiting.get(name)?.forEach((pass) => pass());
        this.#waiting.delete(name);
    }

    /// Resolves once the gate is open. `gone` is an event source whose "close" says that nobody waits any longer.
    pass(name, gone) {
        if (this.#open.has(name)) return Promise.resolve();
        return new Promise((resolve) => {
            const waiting = this.#waiting.get(name) ?? new Set();
            waiting.add(resolve);
            this.#waiting.set(name, waiting);
            gone.once('close', () => this.#leave(name, resolve));
        });
    }

    #leave(name, resolve) {
        const waiting = this.#waiting.get(name);
        if (!waiting?.delete(resolve)) return;
        if (waiting.size === 0) this.#waiting.delete(name);
        resolve();
    }
}
