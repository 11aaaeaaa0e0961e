import { session } from "../Session";

/** Where the server gives a file that a screen shows; another version is read again. */
export function fileAddress(file: string, version = 0): string {
    const query = new URLSearchParams({ sessao: session.name, v: String(version) });
    return `/arquivo/${encodeURIComponent(file)}?${query}`;
}
