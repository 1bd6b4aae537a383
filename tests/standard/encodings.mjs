// SPDX-License-Identifier: MIT
// encodings.mjs PAGES   compares the encoding that the library finds with html-encoding-sniffer's: for every label, for the
// corpus, and for PAGES generated heads. Where the judge is simpler than the standard, the difference has to be of a kind
// named here.
import {createRequire} from 'node:module';
import path from 'node:path';
import sniff from 'html-encoding-sniffer';
import {randomOf} from './pages.mjs';
import {ask, corpusPages, shown, Tally} from './library.mjs';

// The judge's own table of labels, which its package does not hand out.
const require = createRequire(createRequire(import.meta.url).resolve('html-encoding-sniffer'));
const tables = path.dirname(require.resolve('@exodus/bytes/encoding-lite.js'));
const {default: labels} = await import(path.join(tables, 'fallback', 'encoding.labels.js'));
const LABELS = Object.entries(labels).flat(2);

const bytes = s => Buffer.from(s, 'latin1');

function theirs({label, page}) {
    try {
        return sniff(bytes(page), {transportLayerEncodingLabel: label || undefined});
    } catch {
        return 'failed';
    }
}

// What the judge is known not to do as the standard says, each with the sign of it.
const SIMPLER = [
    ['the judge fails where a content ends in "charset"', ({answer}) => answer === 'failed'],
    ['the judge knows no XML declaration', ({page}) => page.startsWith('<?xml')],
    ['the judge knows no XML declaration in UTF-16', ({page}) => /^(<\0\?\0x\0|\0<\0\?\0x)/.test(page)],
    ['the judge reads no attributes of end tags', ({page}) => /<\/[a-z]/i.test(page)],
    ['the judge takes tags that never end', ({page, ours, answer}) => ours === 'windows-1252' &&
        ask('encoding', ['>', '">', "'>"].map(end => '|' + page.slice(0, 1022) + end)).includes(answer)],
    ['the judge lets content replace an unknown charset', ({page}) => /charset(\s*=\s*["']?\s*(bogus|["'> /\v])|[^=])/i.test(page) && /content/i.test(page)],
];

function compare(what, heads) {
    const tally = new Tally(what);
    const answers = ask('encoding', heads.map(({label, page}) => (label ?? '') + '|' + page));
    heads.forEach((head, i) => {
        const ours = answers[i], answer = theirs(head);
        if (ours === answer) return tally.same();
        const known = SIMPLER.find(([, applies]) => applies({...head, ours, answer}));
        const detail = `${shown(head.page)} label ${shown(head.label ?? '')}: ours ${ours}, theirs ${answer}`;
        if (known) tally.because(known[0], detail);
        else tally.different(detail);
    });
    return tally.report();
}

function head(r) {
    const space = () => r.pick([' ', ' ', '', '\n', '\t', '\f', '\r', '/', '\v', '  ']);
    const label = () => r.pick([r.pick(LABELS), r.pick(LABELS).toUpperCase(), 'utf-8', ' big5 ', 'bogus', '', 'utf-16', 'x-user-defined']);
    const quoted = s => r.pick(['"', "'", '"']).replace(/.*/, q => q + s + (r.chance(97) ? q : ''));
    const content = () => quoted(r.pick(['text/html; ', '', 'charset ', 'x']) + r.pick(['charset', 'CharSet']) + space() + r.pick(['=', '=', '=', '']) +
        space() + r.pick(['', '', "'", '']) + label() + r.pick(['', "'", ';', ' x', '']));
    const attribute = () => r.pick([
        () => 'charset' + space() + '=' + space() + r.pick([label(), quoted(label())]),
        () => 'content=' + content(),
        () => 'http-equiv=' + r.pick(['content-type', '"Content-Type"', 'refresh', "'content-type '"]),
        () => r.pick(['a', 'name=x', 'b="<meta charset=big5>"', '=', '"', 'x=\'>\'', 'charset', 'content', 'lang = "a"', 'd=e/'])])();
    const tag = name => '<' + r.pick([name, name.toUpperCase()]) + r.some(4, () => r.pick([' ', ' ', '\n', '/', '\f']) + attribute()) + space() + r.pick(['>', '>', '>', '/>', ' >']);
    const piece = () => r.pick([
        () => tag('meta'), () => tag('meta'), () => tag('meta'), () => tag(r.pick(['p', 'metax', 'html', 'script', 'a'])),
        () => r.pick(['<!--', '<!-->', '<!--->', '-->', '<!-', '<!doctype html>', '<?php', '</', '</ x>', '<', '>', 'text', '"', '<1', '</>', '--', '\n']),
        () => (r.chance(15) ? '</p ' + attribute() + '>' : '<title>x</title>'),
        () => (r.chance(15) ? ' '.repeat(r.below(1024)) : '')])();
    const start = r.chance(4) ? r.pick(['\xEF\xBB\xBF', '\xFE\xFF', '\xFF\xFE', '\xEF\xBB', '<?xml version="1.0" encoding="koi8-r"?>', '<\0?\0x\0', '\0<\0?\0x']) : '';
    const page = start + r.some(6, piece);
    return {page: r.chance(5) ? page.slice(0, r.below(page.length + 1)) : page, label: r.chance(10) ? label() : ''};
}

const count = Number(process.argv[2] ?? 10000);
const variants = LABELS.flatMap(label => [label, label.toUpperCase(), `\t ${label}\r\n`, label + 'x', label.slice(1)]);
const results = [
    compare('encodings, labels', variants.map(label => ({label, page: ''}))),
    compare('encodings, corpus', corpusPages().map(({page}) => ({label: '', page: page.slice(0, 4096)}))),
    compare('encodings, generated heads', Array.from({length: count}, (_, i) => head(randomOf(i + 1)))),
];
process.exit(results.every(Boolean) ? 0 : 1);
