// SPDX-License-Identifier: MIT
// references.mjs PAGES   compares decoded values with those of parse5's tree: every name, with and without ';', followed by
// every ASCII byte, numbers of all kinds, and PAGES random mixtures of what matters, each at every place.
import {execFileSync} from 'node:child_process';
import {parseFragment} from 'parse5';
import {randomOf} from './pages.mjs';
import {ask, bytesOf, marked, shown, Tally} from './library.mjs';

const names = JSON.parse(
    execFileSync('python3', ['-c', 'import html.entities, json; print(json.dumps(sorted(html.entities.html5)))']));

const textOf = page => parseFragment(page).childNodes[0].childNodes.map(node => node.value).join('');
const quoteFor = s => (s.includes('"') ? "'" : '"');

// How a page has a value at each place, and which values cannot stand there, because they would end before.
const PLACES = {
    text: {fits: s => !/<[a-z/!?]/i.test(s), theirs: s => textOf('<b>' + s)},
    rcdata: {fits: s => !s.includes('</'), theirs: s => textOf('<title>' + s)},
    attribute: {
        fits: s => !s.includes(quoteFor(s)),
        theirs: s => parseFragment(`<b t=${quoteFor(s)}${s}${quoteFor(s)}>`).childNodes[0].attrs[0].value,
    },
};

function compare(what, values) {
    return Object.entries(PLACES).map(([place, {fits, theirs}]) => {
        const tally = new Tally(`${what}, ${place}`);
        const fitting = values.filter(fits);
        const answers = ask(place, fitting);
        fitting.forEach((value, i) => {
            const wanted = bytesOf(theirs(marked(value)));
            // The tree drops NUL from text, which decoding alone does not.
            const answer = place === 'text' ? answers[i].replaceAll('\0', '') : answers[i];
            if (answer === wanted) tally.same();
            else tally.different(`${shown(value)}: ours ${shown(answers[i])}, theirs ${shown(wanted)}`);
        });
        return tally.report();
    });
}

function forms(n) {
    const hex = n.toString(16);
    return [`&#${n}`, `&#x${hex}`, `&#X000${hex.toUpperCase()}`].flatMap(s => [s, s + ';', s + 'g', s + '&', s + '=']);
}

function mixture(r) {
    const PIECES = ['&', '&', '&', '#', 'x', 'X', ';', ';', '=', 'amp', 'lt', 'not', 'notin', 'nGt', 'AMP', 'copy', 'quot', '1', '0',
        '41', '80', 'd800', '110000', '99999999999', 'a', 'z', ' ', '\r', '\n', '\r\n', '\0', '<', '\xC3\xA9', '\xE9', '\t', '\x80'];
    return r.some(10, () => r.pick(r.chance(12) ? names : PIECES));
}

const ASCII = Array.from({length: 128}, (_, byte) => String.fromCharCode(byte));
const open = names.filter(name => name.endsWith(';')).map(name => name.slice(0, -1));
const numbers = [...Array(0x3000).keys(), 0xD7FF, 0xD800, 0xDBFF, 0xDFFF, 0xE000, 0xFDD0, 0xFFFD, 0xFFFE, 0xFFFF, 0x10000, 0x1FFFE,
    0x1F600, 0x10FFFF, 0x110000, 2 ** 31, 2 ** 32 - 1, 2 ** 32 + 65, 2 ** 64 + 2 ** 12, 10 ** 30].map(BigInt);
const results = [
    compare('references, names', [...names, ...open].flatMap(name => ASCII.map(c => `q&${name}${c} z`))),
    compare('references, names at the end', [...names, ...open].flatMap(name => ['&' + name, '&' + name.slice(0, -1)])),
    compare('references, numbers', numbers.flatMap(forms)),
    compare('references, mixtures', Array.from({length: Number(process.argv[2] ?? 20000)}, (_, i) => mixture(randomOf(i + 1)))),
];
process.exit(results.flat().every(Boolean) ? 0 : 1);
