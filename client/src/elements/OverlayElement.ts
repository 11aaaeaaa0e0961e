import { session, type Overlay } from "../Session";
import { KeyboardElement } from "./KeyboardElement";

/** Something of the client's own above the screens: it takes the keyboard and gives it back when it is closed. */
export abstract class OverlayElement extends KeyboardElement implements Overlay {
    override connectedCallback(): void {
        super.connectedCallback();
        session.openOverlay(this);
        document.addEventListener("pointerdown", this.pressedElsewhere, true);
        this.addEventListener("contextmenu", preventMenu);
    }

    override disconnectedCallback(): void {
        super.disconnectedCallback();
        session.closeOverlay(this);
        document.removeEventListener("pointerdown", this.pressedElsewhere, true);
    }

    private readonly pressedElsewhere = (event: Event) => {
        if (event.target instanceof Node && !this.contains(event.target)) this.close();
    };

    close(): void {
        this.remove();
    }

    press(key: string, _fresh: boolean): void {
        if (key === "Esc") this.close();
    }

    refocus(): void {
        (this.field ?? this.querySelector<HTMLElement>("[tabindex], button"))?.focus();
    }
}

/** The key that opened a menu asks for the browser's own as well when it is let go. */
const preventMenu = (event: Event) => event.preventDefault();

/** On top of everything, at its place when one is given: below it, or where it fits. */
export function openOverlay<T extends OverlayElement>(overlay: T, at?: DOMRect): T {
    overlay.classList.add("overlay", "unheld");
    document.body.append(overlay);
    if (at) void overlay.updateComplete.then(() => placeBelow(overlay, at));
    return overlay;
}

function placeBelow(overlay: HTMLElement, at: DOMRect): void {
    const { width, height } = overlay.getBoundingClientRect();
    const below = at.bottom + 3 + height <= innerHeight;
    overlay.style.left = `${Math.max(4, Math.min(at.left, innerWidth - width - 4))}px`;
    overlay.style.top = `${below ? at.bottom + 3 : Math.max(4, at.top - height - 3)}px`;
}
