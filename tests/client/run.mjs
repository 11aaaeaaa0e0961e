import { runAll } from "./harness.mjs";
import "./focus.test.mjs";
import "./grid.test.mjs";
import "./scanner.test.mjs";
import "./dialogs.test.mjs";
import "./line.test.mjs";
import "./look.test.mjs";
import "./master.test.mjs";

await runAll();
