/** Where a text was found. */
export interface Place {
    node: Text;
    start: number;
    end: number;
}

/** More of them are not marked: who searches for an "a" wants none. */
const mostPlaces = 5000;
/** Texts between two breaths. */
const slice = 20000;

/** As a person searches: without accents and without regard to case, each letter staying one letter. */
export function folded(text: string): string {
    const plain = text.replace(/[\u00c0-\u024f]/g, (letter) => letter.normalize("NFD").charAt(0)).replace(/\s/g, " ");
    const lower = plain.toLocaleLowerCase("pt-BR");
    return lower.length === plain.length ? lower : plain.toLowerCase();
}

/** The text of the sheets, to be searched. */
export class PageText {
    private readonly bodies: Element[] = [];
    private readonly texts: { node: Text; text: string }[] = [];
    private read = 0;
    private search = 0;
    places: Place[] = [];

    add(body: Element): void {
        this.bodies.push(body);
    }

    /** In the order of the sheets; false when another search began meanwhile. */
    async find(sought: string): Promise<boolean> {
        const search = ++this.search;
        const wanted = folded(sought);
        const places: Place[] = [];
        for (let at = 0; places.length < mostPlaces; ++at) {
            if (at >= this.texts.length && !this.readNext()) break;
            if (at % slice === slice - 1) await new Promise((resolve) => setTimeout(resolve));
            if (search !== this.search) return false;
            addPlaces(places, this.texts[at], wanted);
        }
        this.places = places;
        return true;
    }

    forget(): void {
        ++this.search;
        this.places = [];
    }

    /** The texts of the next sheet that has any. */
    private readNext(): boolean {
        const before = this.texts.length;
        while (this.texts.length === before && this.read < this.bodies.length) {
            const body = this.bodies[this.read++]!;
            const walker = body.ownerDocument.createTreeWalker(body, NodeFilter.SHOW_TEXT);
            for (let node = walker.nextNode() as Text | null; node; node = walker.nextNode() as Text | null)
                if (node.data.trim() !== "") this.texts.push({ node, text: folded(node.data) });
        }
        return this.texts.length > before;
    }

    /** Shows all of them, one as the current one. */
    mark(window: Window & typeof globalThis, current: number): void {
        const rangeOf = ({ node, start, end }: Place) => new StaticRange({ startContainer: node, startOffset: start, endContainer: node, endOffset: end });
        const now = this.places[current];
        window.CSS.highlights.set("found", new window.Highlight(...this.places.filter((place) => place !== now).map(rangeOf)));
        window.CSS.highlights.set("current", new window.Highlight(...(now ? [rangeOf(now)] : [])));
    }
}

function addPlaces(places: Place[], found: { node: Text; text: string } | undefined, sought: string): void {
    if (!found || sought === "") return;
    for (let start = found.text.indexOf(sought); start >= 0; start = found.text.indexOf(sought, start + sought.length))
        places.push({ node: found.node, start, end: start + sought.length });
}
