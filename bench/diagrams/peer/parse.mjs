// Milliseconds that the mermaid package takes to read each file, the least of several runs: parse.mjs FILE...
import { readFileSync } from 'node:fs';
import { JSDOM } from 'jsdom';

const page = new JSDOM('');
globalThis.window = page.window;
globalThis.document = page.window.document;
const mermaid = (await import('mermaid')).default;
mermaid.initialize({ maxTextSize: 1e9, maxEdges: 1e9 });

for (const file of process.argv.slice(2)) {
  const text = readFileSync(file, 'utf8');
  let least = Infinity;
  for (let run = 0; run < 5; ++run) {
    const start = performance.now();
    await mermaid.parse(text);
    least = Math.min(least, performance.now() - start);
  }
  console.log(least.toFixed(3));
}
