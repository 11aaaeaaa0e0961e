/** What a style sheet says of the pages it is printed on: lengths in CSS pixels, margin boxes by their place. */
export interface PageRule {
    width: number;
    height: number;
    margin: Readonly<Record<Side, number>>;
    /** Declarations of the boxes in the margins ("bottom-right"), as they stand in the style sheet. */
    boxes: ReadonlyMap<string, string>;
}

type Side = "top" | "right" | "bottom" | "left";

const pixelsOf: Readonly<Record<string, number>> = { px: 1, pt: 96 / 72, pc: 16, in: 96, cm: 96 / 2.54, mm: 96 / 25.4, q: 96 / 101.6 };

/** Width and height in millimetres. */
const papers: Readonly<Record<string, readonly [number, number]>> = {
    a3: [297, 420],
    a4: [210, 297],
    a5: [148, 210],
    a6: [105, 148],
    letter: [215.9, 279.4],
    legal: [215.9, 355.6],
};

/** As browsers print where a style sheet says nothing. */
const usualMargin = 38;

export const usualPage: PageRule = {
    width: 210 * pixelsOf["mm"]!,
    height: 297 * pixelsOf["mm"]!,
    margin: { top: usualMargin, right: usualMargin, bottom: usualMargin, left: usualMargin },
    boxes: new Map(),
};

/** Takes the @page rules out of a style sheet; of several the later one wins where they differ. Pages with a name or a place are as the others. */
export function takePageRule(css: string, before: PageRule = usualPage): { rule: PageRule; rest: string } {
    let rule = before;
    let rest = "";
    let from = 0;
    for (const { at, open, end } of blocks(css)) {
        const selector = css.slice(at, open).trim();
        if (!selector.startsWith("@page")) continue;
        rest += css.slice(from, at);
        from = end;
        if (selector === "@page") rule = withDeclarations(rule, css.slice(open + 1, end - 1));
    }
    return { rule, rest: rest + css.slice(from) };
}

function withDeclarations(before: PageRule, body: string): PageRule {
    const boxes = new Map(before.boxes);
    let own = "";
    let from = 0;
    for (const { at, open, end } of blocks(body)) {
        own += body.slice(from, at);
        from = end;
        boxes.set(body.slice(at, open).trim().replace(/^@/, ""), body.slice(open + 1, end - 1));
    }
    own += body.slice(from);
    let { width, height } = before;
    const margin = { ...before.margin };
    for (const declaration of own.split(";")) {
        const [name = "", value = ""] = declaration.split(/:(.*)/s).map((part) => part.trim().toLowerCase());
        if (name === "size") [width, height] = paperOf(value, [width, height]);
        else if (name === "margin") Object.assign(margin, fourSides(value));
        else if (name.startsWith("margin-")) margin[name.slice("margin-".length) as Side] = lengthOf(value) ?? usualMargin;
    }
    return { width, height, margin, boxes };
}

function paperOf(value: string, before: readonly [number, number]): readonly [number, number] {
    const words = value.split(/\s+/);
    const lengths = words.map(lengthOf).filter((length) => length !== undefined);
    const paper = words.map((word) => papers[word]).find((found) => found !== undefined);
    const [width, height] = paper ? paper.map((millimetres) => millimetres * pixelsOf["mm"]!) : lengths.length > 0 ? [lengths[0]!, lengths.at(-1)!] : before;
    const [short, long] = [Math.min(width!, height!), Math.max(width!, height!)];
    if (words.includes("landscape")) return [long, short];
    return words.includes("portrait") ? [short, long] : [width!, height!];
}

function fourSides(value: string): Record<Side, number> {
    const [top = usualMargin, right = top, bottom = top, left = right] = value.split(/\s+/).map((word) => lengthOf(word) ?? usualMargin);
    return { top, right, bottom, left };
}

function lengthOf(text: string): number | undefined {
    const [, number, unit = ""] = /^(-?[\d.]+)([a-z]*)$/.exec(text) ?? [];
    if (number === undefined || (unit === "" && Number(number) !== 0)) return undefined;
    return unit === "" ? 0 : Number(number) * (pixelsOf[unit] ?? NaN) || 0;
}

/** The outermost blocks in braces, each with where its selector begins; braces in texts and comments do not count. */
function* blocks(css: string): Generator<{ at: number; open: number; end: number }> {
    let at = 0;
    let open = 0;
    let depth = 0;
    for (const { 0: sign, index } of css.matchAll(/\/\*[\s\S]*?(?:\*\/|$)|"(?:[^"\\]|\\[\s\S])*"?|'(?:[^'\\]|\\[\s\S])*'?|[{};]/g)) {
        if (sign === "{" && ++depth === 1) open = index;
        else if (sign === "}" && --depth === 0) {
            yield { at, open, end: index + 1 };
            at = index + 1;
        } else if ((sign === ";" || sign.startsWith("/*")) && depth === 0) at = index + sign.length;
        depth = Math.max(0, depth);
    }
}
