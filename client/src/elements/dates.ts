/** Dates as they stand in a field: "DD/MM/AAAA", blank "  /  /    ". */

export const isBlankDate = (text: string) => /^[\s/]*$/.test(text);

export function parseDate(text: string): Date | null {
    const digits = text.replace(/\D/g, "");
    const parts = text.includes("/") ? text.split("/").map(Number) : [digits.slice(0, 2), digits.slice(2, 4), digits.slice(4)].map(Number);
    const [day = 0, month = 0, year = 0] = parts;
    const whole = year === 0 ? new Date().getFullYear() : year < 100 ? 2000 + year : year;
    const date = new Date(whole, month - 1, day);
    return date.getDate() === day && date.getMonth() === month - 1 && day > 0 ? date : null;
}

export function formatDate(date: Date): string {
    const two = (number: number) => String(number).padStart(2, "0");
    return `${two(date.getDate())}/${two(date.getMonth() + 1)}/${date.getFullYear()}`;
}

/** "h" is today, "+" and "-" step a day; null for any other text. */
export function dateByKey(key: string, text: string): string | null {
    if (key.toLowerCase() === "h") return formatDate(new Date());
    if (key !== "+" && key !== "-") return null;
    const date = parseDate(text);
    if (!date) return isBlankDate(text) ? formatDate(new Date()) : null;
    date.setDate(date.getDate() + (key === "+" ? 1 : -1));
    return formatDate(date);
}
