// Milliseconds that mermaid takes in a page of a running browser from text to SVG, the least of several runs:
// render.mjs BROWSER FILE...
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { dirname, join } from 'node:path';
import puppeteer from 'puppeteer';

const require = createRequire(import.meta.url);
const library = join(dirname(require.resolve('mermaid')), 'mermaid.min.js');
const [executablePath, ...files] = process.argv.slice(2);
const browser = await puppeteer.launch({ executablePath, args: ['--no-sandbox'] });
const page = await browser.newPage();
await page.setContent('<body></body>');
await page.addScriptTag({ path: library });
for (const file of files) {
  const least = await page.evaluate(async (text) => {
    window.mermaid.initialize({ startOnLoad: false, maxTextSize: 1e9, maxEdges: 1e9 });
    let best = Infinity;
    for (let run = 0; run < 3; ++run) {
      const start = performance.now();
      await window.mermaid.render('drawing', text);
      best = Math.min(best, performance.now() - start);
    }
    return best;
  }, readFileSync(file, 'utf8'));
  console.log(least.toFixed(1));
}
await browser.close();
