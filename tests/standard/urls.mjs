// SPDX-License-Identifier: MIT
// urls.mjs PAGES   compares parsed and resolved URLs with Node's own, and where those differ with whatwg-url's, which follows
// the newest standard: every byte in every part, all links of the corpus, and 50 times PAGES generated strings against
// bases of all kinds.
import whatwg from 'whatwg-url';
import {parse} from 'parse5';
import {randomOf} from './pages.mjs';
import {ask, corpusPages, shown, Tally} from './library.mjs';

const decoder = new TextDecoder('utf-8', {ignoreBOM: true});
const bytes = s => Buffer.from(s).toString('latin1');
const characters = s => decoder.decode(Buffer.from(s, 'latin1'));

function serialized(URL, {url, base}) {
    try {
        return new URL(characters(url), base ? characters(base) : undefined).href;
    } catch {
        return 'not_a_url';
    }
}

// What may differ from Node's URL. A build without libidn2 has to say so, but only of hosts that need it.
function reason(question, ours) {
    if (ours === 'needs_idna') return /[^\0-\x7f]|%|x[\t\r\n]*n[\t\r\n]*-[\t\r\n]*-/i.test(question.url + question.base) && 'hosts that take libidn2';
    return ours === serialized(whatwg.URL, question) && 'as the newest standard has it';
}

function compare(what, questions) {
    const tally = new Tally('urls, ' + what);
    for (let at = 0; at < questions.length; at += 100000) {
        const asked = questions.slice(at, at + 100000);
        const answers = ask('url', asked.map(({url, base}) => `${base.length}|${base}${url}`));
        asked.forEach((question, i) => {
            const wanted = serialized(URL, question);
            if (answers[i] === wanted) return tally.same();
            const known = reason(question, answers[i]);
            const detail = `${shown(question.url)} against ${shown(question.base)}: ours ${shown(answers[i])}, theirs ${shown(wanted)}`;
            if (known) tally.because(known, detail);
            else tally.different(detail);
        });
    }
    return tally.report();
}

const SCHEMES = ['http', 'https', 'HTTP', 'hTTps', 'ftp', 'ws', 'wss', 'file', 'FILE', 'foo', 'data', 'javascript', 'mailto', 'web+x.1-2', 'blob', 'about',
    'urn', '1a', 'a_b', 'h\tttp', ''];
const SLASHES = ['//', '//', '//', '/', '', '///', '\\\\', '/\\', '\\', '////', '/\t/', '//\\/'];
const HOSTS = ['example.com', 'EXAMPLE.com', 'a.b.c', 'localhost', 'LOCALHOST', 'a', '', '1.2.3.4', '1.2.3', '0x7f.1', '0x7F000001', '017700000001', '256', '4294967295',
    '4294967296', '1.2.3.256', '1.2.3.4.5', '1.2.65536', '1.2.3.4.', '1.2.3.08', '0x', '0x.0x.0', '0xg', '1.2.3.4..', '1..2', 'a.1', 'a.0x1', '09', '00.', '.1', 'a.b.1.', '1.a',
    '[::1]', '[::]', '[1::]', '[1:2:3:4:5:6:7:8]', '[1:2:3:4:5:6:7::]', '[::2:3:4:5:6:7:8]', '[1::8]', '[::127.0.0.1]', '[::1.2.3]', '[::1.2.3.04]', '[::1.2.3.256]', '[0:0:0:1:0:0:0:0]',
    '[1:0:0:2:0:0:0:3]', '[ABCD::ef]', '[::ffff:1.2.3.4]', '[1:2:3:4:5:6:1.2.3.4]', '[1:2:3:4:5:6:7:1.2.3.4]', '[::1', '::1', '[::1]x', '[]', '[::g]', '[1:2]', '[12345::]', '[:1]', '[1:]', '[::1%25]',
    '[1::2::3]', 'a%41', '%61%2e%62', 'a%00b', 'a%2fb', 'a%', 'a%zz', '%', '%25', 'a b', 'a%20b', 'a<b', 'a>b', 'a^b', 'a|b', 'a{b', 'a}b', 'a`b', "a'b", 'a"b', 'a\x7fb', 'a\x01b', 'a!b$c&d(e)*+,;=',
    'a_b', '-a-', 'a..b', '.', '..', 'a.', 'xn--nxasmq6b', 'XN--zca', 'xn--', 'xn--a', 'ab--c', 'x.xn--zca.y', '%78n--zca', bytes('faß.de'), bytes('ü.com'), bytes('日本語'), bytes('Ａ.com'), bytes('１.２.３.４'),
    bytes('a\u00adb'), bytes('\u00ad'), bytes('😀.la'), bytes('☃.net'), bytes('a\u200db'), bytes('ﷺ'), bytes('。'), bytes('א.com'), '%C3%BC', '%EF%BC%85', '\xff', 'a\xc3', '%ff', 'C:', 'c|', 'C|', '%43|', '%C2%AD'];
const PORTS = ['', '', '', '', ':', ':80', ':443', ':21', ':8080', ':0', ':00080', ':65535', ':65536', ':99999999999999', ':a', ':8a', ': 80', ':-1', ':8\t0', ':80:90', ':+8'];
const CREDENTIALS = ['', '', '', '', 'user@', 'user:pass@', ':pass@', 'user:@', ':@', '@', 'a@b@', 'a:b:c@', 'a:b@c:d@', 'ü@', '%41:%zz@', 'a b:c d@', "!$&'()*+,;=-._~:\"<>[]^`{|}@", '/@', '\x7f:\x01@', bytes('é:😀@'), '\xff@'];
const SEGMENTS = ['a', 'b', 'a.b', '.', '..', '%2e', '%2E', '.%2e', '%2e.', '%2E%2e', '...', '.%2', '%2e%', '', '', 'C:', 'C|', 'c|', 'D:x', 'ab:', '1:', ' ', '%20', '%', '%zz', '%41', "a'b", 'a"b', 'a<>', 'a`b', 'a{}', 'a^b', 'a|b',
    'a\\b', '\x01', '\x7f', 'é', bytes('é'), bytes('😀'), '\xff', '\xc3', '\xed\xa0\x80', '\xf4\x90\x80\x80', '\xe2\x82', '~_-!$&()*+,;=:@[]', 'a\tb', 'a\nb', '\0'];
const REST = ['', 'a', 'a=b&c=d', "'", '"', '<>', '#', '?', '`', '{}|^\\', ' ', 'a b ', '%', '%41%zz', bytes('é😀'), '\xff\xc3', '\x01\x7f', 'a\r\nb', '/../x', '\0', ':@[]', '  '];
const BASES = ['', '', '', 'http://example.com/a/b?q#f', 'https://user:pw@host:8443/x/y/z.html', 'http://h', 'ftp://h/a/', 'ws://h/?q', 'file:///a/b/c', 'file:///C:/a/b', 'file:///C:/', 'file:///C:', 'file://host/a/b', 'file://host/C:/a', 'file:',
    'file:///?q#f', 'foo://h/a/b?q#f', 'foo://h', 'foo://', 'foo:///', 'foo:/a/b', 'foo:/', 'foo:/.//a/b', 'foo:/a/..//b', 'foo:a', 'foo:a b?q#f', 'mailto:x@y', 'data:,x  ?q', 'javascript:1', 'about:blank', 'foo://u:p@h:1/a/..', 'http://[::1]:80/a?b', 'foo://[::1]',
    'web+x:/.//not/', 'http://1.2.3.4/%2e/a', 'https://h/?a\'b', 'foo://h?q', 'foo://h#f', 'foo:#f', 'foo:?q', 'http:', 'x', 'file:///C|/x', 'file:////a//b', 'http://h//a//b//'];
const NOISE = ['/', '\\', ':', '@', '?', '#', '%', '.', ' ', '\t', '\n', '[', ']', '|', '\xe9', '\0', '2e', '-', 'x', '1', '//', '..', '&'];

function path(r) {
    return r.some(5, () => r.pick(SEGMENTS) + r.pick(['/', '/', '/', '/', '\\', '//'])) + r.pick(['', r.pick(SEGMENTS)]);
}

function generated(r) {
    let url = '';
    if (r.chance(60)) url += r.pick(SCHEMES) + (r.chance(95) ? ':' : '');
    if (r.chance(60)) url += r.pick(SLASHES) + r.pick(CREDENTIALS) + r.pick(HOSTS) + r.pick(PORTS);
    if (r.chance(70)) url += r.pick(['/', '/', '/', '\\', '']) + path(r);
    if (r.chance(35)) url += '?' + r.pick(REST);
    if (r.chance(25)) url += '#' + r.pick(REST);
    if (r.chance(20)) url = r.pick([' ', '\n', '\0', '\x1f ', '\t']) + url + r.pick(['', ' ', '\r\n', '\0']);
    for (let i = r.chance(30) ? 1 + r.below(3) : 0; i > 0; --i) {
        const at = r.below(url.length + 1);
        url = url.slice(0, at) + r.pick(['', r.pick(NOISE)]) + url.slice(at + r.below(2));
    }
    return url;
}

function generatedQuestions(count) {
    return Array.from({length: count}, (_, i) => {
        const r = randomOf(i + 1);
        return {url: generated(r), base: r.chance(25) ? generated(r) : r.pick(BASES)};
    });
}

// Each byte where each part begins, in its midst and at its end.
function everyByte() {
    const FORMS = ['@', 'h@ttp://h/', 'http@//h/', 'http:@', 'http://@h/', 'http://h@h/', 'http://u@:p@h/', 'http://u:p@q@h/', 'http://h@', 'http://h:@', 'http://h:8@', 'http://h/@', 'http://h/a@b', 'http://h/a/@/b', 'http://h/..@/b',
        'http://h/?@', 'http://h/?a@b', 'http://h/#@', 'http://h/#a@b', 'foo:@', 'foo:a@b', 'foo:a@?b', 'foo://h@h/', 'foo://@h/', 'foo://u@u:p@h/', 'foo://h:@', 'foo://h/a@b', 'foo://h/?a@b', 'foo://h/#a@b', 'foo:/@', 'foo:/@/b', 'file:@', 'file:/@',
        'file://@', 'file://a@b/', 'file:///@', 'file:///C@/b', 'file:///C:@b', 'http://[@::1]', 'http://[::@1]', 'http://[::1@]', 'http://1@2.3.4', 'http://1.2.3.@', 'http://h/%@0', 'http://h%4@/', 'data:x@', 'http://a.%3@.b/', '/@', '//@', '?@', '#@', 'a@', '.@', '..@'];
    const values = Array.from({length: 256}, (_, byte) => String.fromCharCode(byte)).concat(['%2e', '%00', '\xc3\xa9']);
    return FORMS.flatMap(form => values.flatMap(value => BASES.slice(2).filter((_, i) => i < 1 || !/^\w+:/.test(form) || i % 3 === 0)
        .map(base => ({url: form.replace('@', () => value), base}))));
}

function corpusLinks() {
    const NAMES = {a: 'href', area: 'href', link: 'href', img: 'src', script: 'src', iframe: 'src', form: 'action'};
    return corpusPages().flatMap(({name, page}, i) => {
        const urls = [];
        let base = BASES.filter(b => /^http/.test(b) && b.length > 10)[i % 4];
        const visit = node => {
            const value = node.attrs?.find(({name: n}) => n === NAMES[node.tagName])?.value;
            if (value !== undefined) urls.push(bytes(value));
            for (const child of node.childNodes ?? []) visit(child);
        };
        visit(parse(decoder.decode(Buffer.from(page, 'latin1'))));
        return urls.map(url => ({url, base}));
    });
}

const results = [
    compare('every byte', everyByte()),
    compare('corpus', corpusLinks()),
    compare('generated', generatedQuestions(50 * Number(process.argv[2] ?? 20000))),
];
process.exit(results.every(Boolean) ? 0 : 1);
