// SPDX-License-Identifier: MIT
// Pages for the judges: short ones by a grammar that prefers what goes wrong, all strings of a few characters after
// beginnings that lead into each state of a tokenizer, and changed pieces of real pages. A page is a string of
// characters up to U+00FF, one for each byte. The same seed gives the same pages.

export function randomOf(seed) {
    let state = seed >>> 0;
    const next = () => { // mulberry32
        state = (state + 0x6D2B79F5) >>> 0;
        let t = state;
        t = Math.imul(t ^ (t >>> 15), t | 1);
        t ^= t + Math.imul(t ^ (t >>> 7), t | 61);
        return (t ^ (t >>> 14)) >>> 0;
    };
    const below = n => next() % n;
    const pick = list => list[below(list.length)];
    const some = (most, make) => Array.from({length: below(most + 1)}, make).join('');
    return {below, pick, some, chance: percent => below(100) < percent};
}

const RAW = ['script', 'style', 'xmp', 'iframe', 'noembed', 'noframes', 'textarea', 'title'];
const PLAIN = ['p', 'div', 'a', 'b', 'i', 'li', 'ul', 'td', 'tr', 'th', 'table', 'br', 'img', 'area', 'base', 'h1', 'span',
    'noscript', 'pre', 'input', 'body', 'head', 'html', 'form', 'button', 'font', 'x-y', 'a:b', 'image', 'option'];
// Where a tree builder may tell its tokenizer more than the tokens say.
const TREE = ['svg', 'math', 'mi', 'mtext', 'annotation-xml', 'foreignobject', 'desc', 'select', 'frameset', 'frame', 'template',
    'svg', 'math', 'svg', 'math', 'g', 'caption', 'colgroup', 'plaintext'];
const ATTRIBUTES = ['href', 'src', 'HREF', 'alt', 'name', 'class', 'id', 'a', 'b', 'srcset', 'width', 'rowspan', 'rel',
    'encoding', 'type', 'checked', 'data-x', 'xlink:href', 'a"b', "a'b", 'a<b', '=x', '"', '\0', 'a\0b', 'A\xC9', 'caf\xE9'];
const SPACES = [' ', ' ', ' ', '\n', '\t', '\f', '\r', '\r\n', '  ', '/', ' / ', '\v', ''];
const REFERENCES = ['&amp;', '&lt;', '&gt;', '&quot;', '&nbsp;', '&copy', '&copy=', '&copyx', '&copy;', '&not', '&notit;', '&notin;',
    '&notin', '&noti', '&ampamp;', '&AMP', '&AMPx', '&Aacute', '&eacute;', '&frac12', '&nosuch;', '&', '&;', '& ', '&&', '&#', '&#;',
    '&#x', '&#x;', '&#X41;', '&#65', '&#65;', '&#65x', '&#x41g', '&#0;', '&#x80;', '&#150;', '&#x9f', '&#xD800;', '&#xDFFF;',
    '&#x110000;', '&#99999999999999999999;', '&#x10FFFF;', '&#xFFFE;', '&#13;', '&#x0D', '&#1;', '&#xA0;', '&#12', '&acE;',
    '&NotEqualTilde;', '&ThickSpace;', '&fjlig;', '&CounterClockwiseContourIntegral;', '&nbsp', '&lt', '&ltx', '&lt=', '&gt1',
    '&sup1', '&sup12', '&frac34;', '&para', '&parallel;', '&sub;', '&subE', '&b.nu;', '&there4;', '&there4', '&bne;', '&nvlt;'];
const TEXTS = ['text', 'a b', ' ', '\n', '\r', '\r\n', '\0', '<', '<<', '< ', '<1', '<\xE9', '<>', '>', '"', "'", '=', '/', '-->', ']]>', ']',
    '\xE9', '\xE2\x82\xAC', '\xF0\x9F\x98\x80', '\x7F', '\x80', '\xFF', '</', '</ ', '</>', '</1', '\f', '\v', '\t', 'x'.repeat(60), '-', '!'];
const COMMENTS = ['<!---->', '<!-->', '<!--->', '<!-- x -->', '<!--x--!>', '<!--x--!x-->', '<!--x--!-->', '<!--x---->', '<!--x--->',
    '<!--<!-->', '<!--<!--->', '<!--<!-- x -->', '<!--x<!', '<!--x<!-', '<!--<!----!>', '<!-- - -- -->', '<!--\0-->', '<!--\r\n-->', '<!--a--\r>-->',
    '<!>', '<!x>', '<!-x>', '<!-', '<!--', '<!--x', '<!--x-', '<!--x--', '<!--x--!', '<?xml?>', '<?>', '<?', '<? > ?>', '<!a\0b>', '</ x>', '</\0>',
    '<![CDATA[x]]>', '<![CDATA[x>]]>', '<![CDATA[', '<![cdata[x]]>', '<![CDATA[a]]]>', '<![CDATA[]]]]>', '<![CDATA[&amp;\0<p>]]>', '<!ELEMENT x>',
    '<!--x--\n>', '<!--x-- >', '<!--->x-->', '<!---!>', '<!----!>', '<!----->', '<!--!>', '<!--!-->', '<!--<-->', '<!--<!>-->', '<!--<<!---->'];
const DOCTYPES = ['<!doctype html>', '<!DOCTYPE html>', '<!doctype>', '<!doctype >', '<!doctypehtml>', '<!doctype HTML PUBLIC "a" "b">',
    "<!doctype html public 'a''b'>", '<!doctype html public"a"b">', '<!doctype html system "s">', "<!doctype html SYSTEM's'>", '<!doctype html system>',
    '<!doctype html public>', '<!doctype html public a>', '<!doctype html x "a>b">', '<!doctype html public "a>', '<!doctype html public "a" "b>',
    '<!doctype html public "a" x>', '<!doctype html system "s" x>', '<!doctype\0>', '<!doctype h\0>', '<!doctype \xE9>', '<!doctype html\fpublic\r"a\r\n">',
    '<!doctype', '<!doctype h', '<!doctype html p', '<!doctype html public', '<!doctype html public ', '<!doctype html public "', '<!doctype html public "a" ',
    '<!doctype html system ', "<!doctype html system '", '<!doctyp html>', '<!doctype html publi "a">', '<!doctype html "a">', '<!doctype html public "\0">',
    '<!doctype html system "a\0b" >', '<!doctype html public "a" \'b\' c "d">', '<!doctype html>\n'];
const SCRIPTS = ['<!--', '-->', '--', '->', '-', '<script>', '<script', '</script>', '</script', '</scrip>', '<SCRIPT/', '</SCRIPT ', '<', '</', '<!', '<!-', ' ',
    'x', '>', '"</script>"', '<scriptx>', '</scriptx>', '\0', '<!-->', '<!--->', '--!>', '</script\n', '</script/', '<a>', '\r\n', '&amp;', '<!--<script>'];

const upperSometimes = (r, s) => (r.chance(10) ? s.toUpperCase() : s);

function value(r) {
    const inner = () => r.some(3, () => r.pick([r.pick(TEXTS), r.pick(REFERENCES), r.pick(['u.html', 'http://x/', 'a', '1'])]));
    const quote = r.pick(['"', '"', '"', "'", '']);
    return quote + inner().replaceAll(r.chance(95) ? quote || ' ' : '\x01', '') + (r.chance(98) ? quote : '');
}

function attribute(r) {
    const name = r.pick(ATTRIBUTES);
    const space = () => (r.chance(15) ? r.pick(SPACES) : '');
    return name + (r.chance(80) ? space() + '=' + space() + value(r) : '');
}

function startTag(r, name) {
    const attributes = r.some(3, () => (r.chance(95) ? r.pick(SPACES) : '') + attribute(r));
    return '<' + upperSometimes(r, name) + attributes + (r.chance(20) ? r.pick(SPACES) : '') + r.pick(['>', '>', '>', '>', '/>', ' />', '']);
}

function endTag(r, name) {
    return '</' + upperSometimes(r, name) + (r.chance(15) ? r.pick(SPACES) + attribute(r) : '') + r.pick(['>', '>', '>', ' >', '/>', '']);
}

function rawElement(r) {
    const name = r.pick(RAW);
    const inside = () => r.pick([r.pick(TEXTS), r.pick(SCRIPTS), r.pick(REFERENCES), endTag(r, r.pick([name, name + 'x', r.pick(RAW)]))]);
    return startTag(r, name) + r.some(6, inside) + (r.chance(80) ? endTag(r, name) : '');
}

function oddName(r) {
    return r.pick(['a', 'x', 'Z', 'p']) + r.pick(['\0', '\xE9', '"', "'", '=', '<', '<p', '-', ':', '1', 'b'.repeat(70), '\v']) + r.pick(['', 'q']);
}

/** One page by the grammar; `withTree` adds what only a tree builder knows all about. */
export function grammarPage(r, withTree) {
    const name = () => r.pick(withTree && r.chance(40) ? TREE : PLAIN);
    const piece = () => {
        const n = r.below(100);
        if (n < 26) return startTag(r, name());
        if (n < 38) return endTag(r, name());
        if (n < 58) return r.pick(TEXTS);
        if (n < 68) return r.pick(REFERENCES);
        if (n < 76) return r.pick(COMMENTS);
        if (n < 80) return r.pick(DOCTYPES);
        if (n < 90) return rawElement(r);
        if (n < 94) return startTag(r, oddName(r));
        if (n < 96) return r.pick(SCRIPTS);
        if (n < 98) return endTag(r, r.pick(RAW));
        return ' '.repeat(r.below(70));
    };
    let page = '';
    for (let i = r.below(12); i >= 0; --i) page += piece();
    return r.chance(20) ? page.slice(0, r.below(page.length + 1)) : page;
}

const MARKS = ['<', '>', '"', "'", '=', '&', '/', '!', '-', '\0', ' ', '<!--', '-->', '</', '\r', ';', 'x', '<script>', '</script>', '<![CDATA['];

/** A piece of a real page with a few changes. */
export function changedPage(r, page) {
    const size = 40 + r.below(r.pick([200, 2000]));
    const start = r.below(Math.max(1, page.length - size));
    let piece = page.slice(start, start + size);
    for (let i = r.below(5); i > 0; --i) {
        const at = r.below(piece.length + 1);
        const end = at + r.below(r.pick([2, 10, 60]));
        piece = piece.slice(0, at) + r.pick([r.pick(MARKS), '', piece.slice(at, end).repeat(2)]) + piece.slice(end);
    }
    return piece;
}

const BEGINNINGS = [
    ['', '<a/!? -'], ['<', '<a/!?> -\0'], ['</', '<a/!?> -\0'], ['<a', ' /=>"\'a&\0\n'], ['<a ', ' /=>"\'a<&\0'], ['<a b', ' /=>"\'a&\0'],
    ['<a b=', ' />"\'a=&;<`'], ['<a b="', ' />"\'a&'], ["<a b='x'", ' />"\'=a&'], ['</a ', ' /=>"\'a<'], ['<!', '-d[>a!'], ['<!-', '-><! a'], ['<!--', '->!<a '],
    ['<!--a', '->!<\0'], ['<?', '?>a<-'], ['<!doctype', ' >ap"\0'], ['<!doctype a', ' >"\'ps'], ['<!doctype a public', ' >"\'a'], ['<!doctype a public"b"', ' >"\'a'],
    ['<!doctype a system', ' >"\'a'], ['<![CDATA[', ']>a<&'], ['<script>', '<!-/s >'], ['<script><!--', '-<>/! '], ['<script><!--<script>', '-<>/! '],
    ['<script><!--<script', ' />s-<'], ['<script><!--<script></script', ' />s-<'], ['<script></script', ' />s<"'], ['<style><!--', '-></'], ['<style></style', ' />s<='],
    ['<title>', '</t>&a'], ['<title></title', ' />s<='], ['<textarea>', '\n\r</&\0'], ['<plaintext>', '</&\0\r'], ['&', '#xa1;&l'], ['&#', 'x01;9a'], ['&#x', '0aF;gx'], ['&am', 'p;=a&'],
    ['<a b=&am', 'p;=a& >"'], ['<a b="&no', 't;=i"n'], ['<svg>', '<![]>/'], ['<svg><![CDATA[', ']>a<&\0'], ['<xmp></', 'xmp> /'], ['<noscript>', '</p>a'], ['<iframe></iframe', ' />s<'],
];

/** All strings of up to `most` characters after each beginning, one page at a time, each followed by one that closes all. */
export function* exhaustivePages(most) {
    for (const [beginning, alphabet] of BEGINNINGS) {
        let level = [''];
        for (let length = 0; length <= most; ++length) {
            for (const s of level) {
                yield beginning + s;
                yield beginning + s + '>--></script>x<b c>';
            }
            level = length < most ? level.flatMap(s => [...alphabet].map(c => s + c)) : [];
        }
    }
}
