/*
 * The worker of many values.
 */
import { doRequest, type Report, type Request } from "./many_rows";

export function startWorker(): void {
    onmessage = (event: MessageEvent<Request>) => {
        void doRequest(event.data, (report: Report) => {
            postMessage(report);
        });
    };
}
