// The studio as the browser tests run it: the program started with
// --no-browser on its own user data, its address (with the token) read from
// what it prints, and a way to end it.
import { spawn } from "node:child_process";

// How the tests start Debian's chromium: headless, and quiet on the network.
export const CHROMIUM_ARGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync"];

export async function launchStudio(program, dataFolder, args, timeout) {
    const child = spawn(program, ["--data", dataFolder, "studio", "--no-browser", ...args], {
        stdio: ["ignore", "pipe", "pipe"],
    });
    let output = "";
    const exited = new Promise((resolve) => child.on("exit", (code, signal) => resolve({ code, signal })));
    const url = await new Promise((resolve, reject) => {
        const timer = setTimeout(() => reject(new Error(`no address within ${timeout} ms:\n${output}`)), timeout);
        const read = (chunk) => {
            output += chunk;
            const found = /http:\/\/127\.0\.0\.1:\d+\/\?token=[0-9a-f]+/.exec(output);
            if (found) {
                clearTimeout(timer);
                resolve(found[0]);
            }
        };
        child.stdout.on("data", read);
        child.stderr.on("data", (chunk) => (output += chunk));
        exited.then(({ code }) => reject(new Error(`the studio ended with ${code}:\n${output}`)));
    });
    return {
        url,
        // How the program ended, once it has.
        ended: () => exited,
        async stop() {
            if (child.exitCode === null && child.signalCode === null)
                child.kill("SIGTERM");
            return exited;
        },
    };
}
