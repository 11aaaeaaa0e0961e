import { ask } from "./Account";

type Stored = string | number | boolean | null | readonly Stored[] | { readonly [name: string]: Stored };

const pauseBeforeWriting = 600;

/** What a user has arranged for himself. The server keeps it, so that he finds it at every place of work. */
export class Preferences extends EventTarget {
    private values: Record<string, Stored> = {};
    private unwritten: Record<string, Stored> = {};
    private timer = 0;

    /** Without a line, what is set holds for this window. */
    async load(): Promise<void> {
        this.values = await ask<Record<string, Stored>>("GET", "/preferencias").catch(() => ({}));
        addEventListener("pagehide", () => this.write());
        this.dispatchEvent(new Event("change"));
    }

    text(name: string, otherwise: string): string {
        const value = this.values[name];
        return typeof value === "string" ? value : otherwise;
    }

    flag(name: string, otherwise: boolean): boolean {
        const value = this.values[name];
        return typeof value === "boolean" ? value : otherwise;
    }

    texts(name: string): readonly string[] {
        const value = this.values[name];
        return Array.isArray(value) ? value.filter((each): each is string => typeof each === "string") : [];
    }

    object(name: string): { readonly [name: string]: Stored } {
        const value = this.values[name];
        return typeof value === "object" && value !== null && !Array.isArray(value) ? (value as { readonly [name: string]: Stored }) : {};
    }

    set(name: string, value: Stored): void {
        this.values[name] = value;
        this.unwritten[name] = value;
        clearTimeout(this.timer);
        this.timer = window.setTimeout(() => this.write(), pauseBeforeWriting);
        this.dispatchEvent(new Event("change"));
    }

    private write(): void {
        if (Object.keys(this.unwritten).length === 0) return;
        const body = JSON.stringify(this.unwritten);
        this.unwritten = {};
        void fetch("/preferencias", { method: "PUT", body, keepalive: true, headers: { "Content-Type": "application/json" } }).catch(
            () => undefined,
        );
    }
}

export const preferences = new Preferences();
