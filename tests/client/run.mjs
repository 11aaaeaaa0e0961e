import { runAll } from "./harness.mjs";
import "./focus.test.mjs";
import "./grid.test.mjs";
import "./scanner.test.mjs";
import "./reading.test.mjs";
import "./dialogs.test.mjs";
import "./line.test.mjs";
import "./look.test.mjs";

await runAll();
