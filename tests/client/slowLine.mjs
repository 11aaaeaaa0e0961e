// A line between browser and server that takes its time, in each direction, and that can be cut.
import { connect, createServer } from "node:net";

export async function slowLine(serverPort, delay) {
    const open = new Set();
    const pass = (from, to) => {
        from.on("data", (data) => setTimeout(() => to.writable && to.write(data), delay));
        from.on("close", () => setTimeout(() => to.destroy(), delay));
        from.on("error", () => to.destroy());
    };
    const server = createServer((client) => {
        const upstream = connect(serverPort, "127.0.0.1");
        client.setNoDelay(true);
        upstream.setNoDelay(true);
        pass(client, upstream);
        pass(upstream, client);
        for (const socket of [client, upstream]) {
            open.add(socket);
            socket.on("close", () => open.delete(socket));
        }
    });
    await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
    const cut = () => open.forEach((socket) => socket.destroy());
    return {
        url: `http://127.0.0.1:${server.address().port}/`,
        cut,
        async close() {
            cut();
            await new Promise((resolve) => server.close(resolve));
        },
    };
}
