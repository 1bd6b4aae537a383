// SPDX-License-Identifier: MIT
// What the judges share: the program that asks the library, the pages of the corpus, and how results are told.
import {spawnSync} from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';

const {PAGESLICE_DUMP: program, PAGESLICE_CORPUS: corpus} = process.env;

/** The library's answers to pages of one byte a character, as strings of the same kind. */
export function ask(mode, pages) {
    const input = Buffer.concat(pages.flatMap(page => [Buffer.from(`${page.length}\n`), Buffer.from(page, 'latin1')]));
    const run = spawnSync(program, [mode], {input, maxBuffer: 1 << 30});
    if (run.status !== 0) throw new Error(`${program} ${mode}: ${run.error ?? run.stderr} ${run.signal ?? run.status}`);
    const answers = [];
    for (let at = 0; at < run.stdout.length;) {
        const end = run.stdout.indexOf('\n', at);
        const size = Number(run.stdout.toString('latin1', at, end));
        answers.push(run.stdout.toString('latin1', end + 1, end + 1 + size));
        at = end + 1 + size;
    }
    if (answers.length !== pages.length) throw new Error(`${program} ${mode}: ${answers.length} answers to ${pages.length} pages`);
    return answers;
}

/** All pages of the corpus, by name. */
export function corpusPages() {
    const names = fs.readdirSync(corpus).filter(name => name.endsWith('.html')).sort();
    return names.map(name => ({name, page: fs.readFileSync(path.join(corpus, name), 'latin1')}));
}

// Bytes from 0x80 up go to the other library as characters that no character reference gives, so that both kinds can be
// told apart in what it answers.
const PRIVATE = 0xF700;
export const marked = page =>
    page.replace(/[\x80-\xff]/g, c => String.fromCharCode(PRIVATE + c.charCodeAt(0)));

/** A string of the other library as bytes: marked ones as they were, all else in UTF-8. */
export function bytesOf(s) {
    if (!/[^\0-\x7f]/.test(s)) return s;
    return s.replace(/[\uf780-\uf7ff]|[^\0-\x7f]/gu, c => {
        const code = c.codePointAt(0);
        return code >= PRIVATE + 0x80 && code <= PRIVATE + 0xFF ? String.fromCharCode(code - PRIVATE) : Buffer.from(c).toString('latin1');
    });
}

/** Counts by category; prints the first few of each that are not equal. */
export class Tally {
    constructor(what, shown = 5) {
        Object.assign(this, {what, shown, count: 0, equal: 0, explained: new Map(), failures: 0});
    }
    same() {
        this.count++;
        this.equal++;
    }
    /** A difference that tree construction explains. */
    because(reason, detail) {
        this.count++;
        const n = (this.explained.get(reason) ?? 0) + 1;
        this.explained.set(reason, n);
        if (n <= 2 && process.env.PAGESLICE_VERBOSE) console.log(`  ${this.what}: ${reason}: ${detail}`);
    }
    different(detail) {
        this.count++;
        if (++this.failures <= this.shown) console.log(`DIFFERENT ${this.what}: ${detail}`);
    }
    /** Prints the line of the table; true when nothing is left without an explanation. */
    report() {
        const because = [...this.explained].map(([reason, n]) => `, ${n} ${reason}`).join('');
        console.log(`${this.what}: ${this.count} compared, ${this.equal} equal${because}, ${this.failures} different`);
        return this.failures === 0 && this.count > 0;
    }
}

export const shown = s => JSON.stringify(s.length > 400 ? s.slice(0, 400) + '…' : s);
