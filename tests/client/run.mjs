import { runAll } from "./harness.mjs";
import "./entrance.test.mjs";
import "./first_load.test.mjs";
import "./window.test.mjs";
import "./controls.test.mjs";
import "./access.test.mjs";
import "./focus.test.mjs";
import "./grid.test.mjs";
import "./scanner.test.mjs";
import "./reading.test.mjs";
import "./dialogs.test.mjs";
import "./line.test.mjs";
import "./look.test.mjs";
import "./factory.test.mjs";
import "./protocol.test.mjs";
import "./master.test.mjs";
import "./report.test.mjs";

await runAll();
