// SPDX-License-Identifier: MIT
// Tokens against those that parse5's tokenizer gives its tree builder, with scripting off: kinds, places, names,
// attributes, and what they say.
import {Parser} from 'parse5';
import {ask, bytesOf, corpusPages, marked, shown, Tally} from './library.mjs';
import {changedPage, exhaustivePages, grammarPage, randomOf} from './pages.mjs';

/** Stands between the tokenizer and the parser: writes down what the parser is told, once, texts joined. */
class Listener {
    constructor(parser, page) {
        Object.assign(this, {parser, page, list: []});
        parser.tokenizer.handler = this;
        // parse5 has one answer for tokenizer and builder, but by the standard a CDATA section may begin right inside
        // an element of svg or math that holds HTML, too.
        let builders = false;
        Object.defineProperty(parser.tokenizer, 'inForeignNode', {
            get: () => this.isTelling ? builders : parser.currentNotInHTML,
            set: is => { builders = is; },
        });
    }
    tell(what, token) {
        this.isTelling = true;
        this.parser[what](token);
        this.isTelling = false;
    }
    text(token) {
        const last = this.list[this.list.length - 1];
        if (last?.kind === 'text') last.text += bytesOf(token.chars);
        else this.list.push({kind: 'text', text: bytesOf(token.chars)});
    }
    put(kind, token, fields) {
        const {startOffset} = token.location;
        const endOffset = Math.min(token.location.endOffset, this.page.length); // parse5 counts the page's end
        this.list.push({kind, place: `${startOffset}+${endOffset - startOffset}`, ...fields});
    }
    tag(kind, token) {
        const attributes = token.attrs.map(a => [bytesOf(a.name), bytesOf(a.value)]);
        this.put(kind, token, {flag: token.selfClosing, name: bytesOf(token.tagName), attributes});
    }
    onCharacter(token) { this.text(token); this.tell('onCharacter', token); }
    onNullCharacter(token) { this.text(token); this.tell('onNullCharacter', token); }
    onWhitespaceCharacter(token) { this.text(token); this.tell('onWhitespaceCharacter', token); }
    onStartTag(token) { this.tag('start', token); this.tell('onStartTag', token); }
    onEndTag(token) { this.tag('end', token); this.tell('onEndTag', token); }
    onComment(token) {
        this.put('comment', token, {text: bytesOf(token.data)});
        this.tell('onComment', token);
    }
    onDoctype(token) {
        const {name, publicId, systemId, forceQuirks} = token;
        const ids = [publicId, systemId].map(id => id === null ? null : bytesOf(id));
        this.put('doctype', token, {flag: forceQuirks, name: bytesOf(name ?? ''), ids});
        this.tell('onDoctype', token);
    }
    onEof(token) { this.tell('onEof', token); }
}

function theirs(page) {
    const parser = new Parser({sourceCodeLocationInfo: true, scriptingEnabled: false});
    const listener = new Listener(parser, page);
    parser.tokenizer.write(marked(page), true);
    return listener.list;
}

function ours(answer) {
    const list = [];
    for (const line of answer.split('\x1e').slice(0, -1)) {
        const [kind, begin, size, flag, name, ...rest] = line.split('\x1f').slice(0, -1);
        const place = `${begin}+${size}`;
        const text = rest.pop();
        if (kind === 'text' || kind === 'cdata') {
            const last = list[list.length - 1];
            if (last?.kind === 'text') last.text += text;
            else if (text !== '') list.push({kind: 'text', text});
        } else if (kind === 'comment') list.push({kind, place, text});
        else if (kind === 'doctype') {
            const ids = rest.map(id => id[0] === '-' ? null : id.slice(1));
            list.push({kind, place, flag: flag === '1', name, ids});
        } else {
            const attributes = [];
            for (let i = 0; i < rest.length; i += 2) attributes.push([rest[i], rest[i + 1]]);
            list.push({kind, place, flag: flag === '1', name, attributes});
        }
    }
    return list;
}

// Where only a whole tree would know: elements that its builder drops, or that it closes by rules of their own, so that
// svg and math begin or end elsewhere. Tokens take the tags' word for it.
const TREE = {
    'in select or frameset': /<(select|frameset)/i,
    'in svg or math closed by the tree': /^(?=[^]*<(svg|math))[^]*<(template|table|caption|colgroup)/i,
};

function compare(tally, pages, explained) {
    const answers = ask('tokens', pages);
    pages.forEach((page, i) => {
        const [a, b] = [ours(answers[i]), theirs(page)].map(list => list.map(token => JSON.stringify(token)));
        const at = a.findIndex((token, n) => token !== b[n]);
        if (at < 0 && a.length === b.length) return tally.same();
        const where = at < 0 ? a.length : at;
        const detail = `${shown(page)}\n  ours   ${a[where]}\n  theirs ${b[where]}`;
        const reason = explained && Object.keys(TREE).find(known => TREE[known].test(page));
        if (reason) tally.because(reason, detail);
        else tally.different(detail);
    });
}

const CHUNK = 5000; // pages that are asked for at once

function compareAll(what, pages, explained) {
    const tally = new Tally(what);
    let chunk = [];
    for (const page of pages) {
        chunk.push(page);
        if (chunk.length === CHUNK) {
            compare(tally, chunk, explained);
            chunk = [];
        }
    }
    compare(tally, chunk, explained);
    return tally.report();
}

function* times(count, make) {
    for (let i = 0; i < count; ++i) yield make();
}

const count = Number(process.argv[2] ?? 20000);
const r = randomOf(count);
const corpus = corpusPages().map(({page}) => page);
const passed = [
    compareAll('tokens of the corpus', corpus, false),
    compareAll('tokens, by grammar', times(count, () => grammarPage(r, false)), false),
    compareAll('tokens, by grammar, with trees', times(count, () => grammarPage(r, true)), true),
    compareAll('tokens, changed pages', times(count, () => changedPage(r, r.pick(corpus))), true),
    compareAll('tokens, each state', exhaustivePages(count < 100000 ? 3 : 5), false),
];
process.exit(passed.every(Boolean) ? 0 : 1);
