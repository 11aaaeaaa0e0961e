/** Work of the same user that waits to be gone on with, as the server tells it. */
export interface OfferedSession {
    id: string;
    desde: string;
    uso: string;
    telas: readonly string[];
    pendente: boolean;
    /** Some browser has it open. */
    aberta: boolean;
}

export interface Welcome {
    usuario: string;
    nome: string;
    sessoes: readonly OfferedSession[];
    /** What happened since he was here last. */
    aviso?: string;
}

/** What the server answers when it refuses; the text is for the user. */
export class Refusal extends Error {
    constructor(
        readonly status: number,
        text: string,
        readonly pending: boolean,
    ) {
        super(text);
    }
}

/** The answer's object; throws a Refusal for any other status than 200, a TypeError when there is no line. */
export async function ask<T>(method: "GET" | "POST" | "PUT", path: string, body?: object): Promise<T> {
    const response = await fetch(path, {
        method,
        ...(body === undefined ? {} : { body: JSON.stringify(body), headers: { "Content-Type": "application/json" } }),
    });
    const answer = (await response.json().catch(() => ({}))) as T & { erro?: string; pendente?: boolean };
    if (response.ok) return answer;
    throw new Refusal(response.status, answer.erro ?? `O servidor respondeu ${response.status}.`, answer.pendente === true);
}

/** The user who is logged in; null when nobody is. */
export async function whoIs(): Promise<Welcome | null> {
    try {
        return await ask<Welcome>("GET", "/quem");
    } catch (error) {
        if (error instanceof Refusal && error.status === 401) return null;
        throw error;
    }
}

export const comeIn = (usuario: string, senha: string) => ask<Welcome>("POST", "/entrar", { usuario, senha });

/** Ends the session. Refused while something waits to be stored, unless that may be undone. */
export const goOut = (sessao: string, desfazer: boolean) => ask<object>("POST", "/sair", { sessao, desfazer });

const largestFile = 20 * 1024 * 1024;

/** What the file is called on the server, to be given as the answer of the dialog that asked for it. */
export async function sendFile(file: File, sessao: string): Promise<string> {
    if (file.size > largestFile) throw new Error("O arquivo é grande demais.");
    const query = new URLSearchParams({ nome: file.name, sessao });
    const response = await fetch(`/arquivo?${query}`, { method: "POST", body: file });
    const answer = (await response.json().catch(() => ({}))) as { arquivo?: string; erro?: string };
    if (!response.ok || answer.arquivo === undefined) throw new Error(answer.erro ?? "O arquivo não pôde ser enviado.");
    return answer.arquivo;
}
