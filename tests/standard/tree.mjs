// SPDX-License-Identifier: MIT
// What a page holds against parse5's tree of it, with scripting off: title, base, links, images, cells and items, and the
// words of its text. The tree moves, drops and repeats elements that stand where they may not; how often, the table tells.
import {html, Parser} from 'parse5';
import {ask, bytesOf, corpusPages, marked, shown} from './library.mjs';

const HTML = html.NS.HTML;
const LEFT_OUT = new Set(['script', 'style', 'template', 'head', 'title']);
const KINDS = {
    link: {is: ({tagName}) => tagName === 'a' || tagName === 'area', attribute: 'href'},
    image: {is: ({tagName}) => tagName === 'img'},
    cell: {is: ({tagName}) => tagName === 'td' || tagName === 'th'},
    item: {is: ({tagName}) => tagName === 'li'},
};

function* elements(node) {
    for (const child of node.childNodes ?? []) {
        yield child;
        yield* elements(child);
    }
}

function* texts(node) {
    for (const child of node.childNodes ?? []) {
        if (child.nodeName === '#text') yield bytesOf(child.value);
        else if (!LEFT_OUT.has(child.tagName)) yield* texts(child);
    }
}

const squeezed = s => s.replace(/[\t\n\f\r ]+/g, ' ').replace(/^ | $/g, '');
// Where lines begin is not the tree's business: text without any space is what both have.
const letters = s => s.replace(/[\t\n\f\r \0]+/g, '');

function theirs(page) {
    const document = Parser.parse(marked(page), {scriptingEnabled: false});
    const all = [...elements(document)].filter(node => node.namespaceURI === HTML);
    const value = (node, name) => bytesOf(node.attrs.find(a => a.name === name)?.value ?? '');
    const has = (node, name) => node.attrs.some(a => a.name === name);
    const title = all.find(node => node.tagName === 'title');
    const base = all.find(node => node.tagName === 'base' && has(node, 'href'));
    const found = {
        title: [title ? squeezed([...texts(title)].join('')) : ''],
        base: [base ? value(base, 'href') : ''],
        text: [letters([...texts(document)].join(''))],
    };
    found.link = all.filter(node => KINDS.link.is(node) && has(node, 'href')).map(node => value(node, 'href'));
    found.image = all.filter(KINDS.image.is).map(node => value(node, 'src'));
    for (const kind of ['cell', 'item']) {
        found[kind] = all.filter(KINDS[kind].is).map(node => letters([...texts(node)].join('')));
    }
    return found;
}

function ours(answer) {
    const found = {title: [], base: [], link: [], image: [], cell: [], item: [], text: []};
    for (const line of answer.split('\x1e').slice(0, -1)) {
        const [what, value] = line.split('\x1f');
        found[what].push(['cell', 'item', 'text'].includes(what) ? letters(value) : value);
    }
    return found;
}

/** How many of one list the other has too, each as often as it stands there. */
function common(a, b) {
    const counts = new Map();
    for (const value of b) counts.set(value, (counts.get(value) ?? 0) + 1);
    let n = 0;
    for (const value of a) {
        const left = counts.get(value) ?? 0;
        if (left > 0) counts.set(value, left - 1);
        n += left > 0 ? 1 : 0;
    }
    return n;
}

// The part of what either side has that both must have.
const WANTED = {title: 1, base: 1, link: 0.999, image: 0.999, cell: 0.99, item: 0.99, text: 0.9};

const pages = corpusPages();
const answers = ask('page', pages.map(({page}) => page));
const sums = Object.fromEntries(Object.keys(WANTED).map(what => [what, {ours: 0, theirs: 0, both: 0}]));
pages.forEach(({name, page}, i) => {
    const [a, b] = [ours(answers[i]), theirs(page)];
    for (const [what, sum] of Object.entries(sums)) {
        const both = common(a[what], b[what]);
        sum.ours += a[what].length;
        sum.theirs += b[what].length;
        sum.both += both;
        if (process.env.PAGESLICE_VERBOSE && both !== Math.max(a[what].length, b[what].length)) {
            console.log(`${name}: ${what}: ours ${a[what].length}, theirs ${b[what].length}, both ${both}`);
            const at = a[what].findIndex((value, n) => value !== b[what][n]);
            const [x, y] = [a[what][at] ?? '', b[what][at] ?? ''];
            let from = 0;
            while (from < x.length && x[from] === y[from]) ++from;
            from = Math.max(0, from - 40);
            console.log(`  ours   ${shown(x.slice(from, from + 120))}\n  theirs ${shown(y.slice(from, from + 120))}`);
        }
    }
});
let passed = true;
for (const [what, {ours, theirs, both}] of Object.entries(sums)) {
    const enough = both >= WANTED[what] * Math.max(ours, theirs);
    console.log(`${what}: ours ${ours}, the tree ${theirs}, both ${both}${enough ? '' : ': too few'}`);
    passed &&= enough;
}
process.exit(passed ? 0 : 1);
