import { ask, Refusal } from "../Account";
import { session } from "../Session";

export type FileFormat = "pdf" | "html" | "xlsx" | "txt";

const addressOf = (report: string, ending: string) => `/relatorio/${encodeURIComponent(report)}${ending}?${new URLSearchParams({ sessao: session.name })}`;

/** The report's document, piece by piece. */
export async function* documentOf(report: string): AsyncGenerator<string> {
    const response = await fetch(addressOf(report, ""));
    if (!response.ok || !response.body) throw await refusalOf(response);
    const decoder = new TextDecoder();
    const reader = response.body.getReader();
    for (let { done, value } = await reader.read(); !done; { done, value } = await reader.read()) yield decoder.decode(value, { stream: true });
    yield decoder.decode();
}

/** The browser keeps it under that name. */
export async function saveReport(report: string, format: FileFormat, title: string): Promise<void> {
    const response = await fetch(addressOf(report, `.${format}`));
    if (!response.ok) throw await refusalOf(response);
    const link = document.createElement("a");
    link.href = URL.createObjectURL(await response.blob());
    link.download = `${title.replace(/[\\/:*?"<>|\s]+/g, " ").trim()}.${format}`;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

/** Throws a Refusal with a text for the user when that is no address. */
export const mailReport = (report: string, email: string) => ask<object>("POST", addressOf(report, ""), { email });

async function refusalOf(response: Response): Promise<Refusal> {
    const { erro } = (await response.json().catch(() => ({}))) as { erro?: string };
    return new Refusal(response.status, erro ?? `O servidor respondeu ${response.status}.`, false);
}
