// SPDX-License-Identifier: MIT
#include "standard/element.h"

namespace pageslice::standard {
namespace {

constexpr std::uint8_t BLOCK = IS_HTML | IS_BLOCK;
constexpr std::uint8_t BREAKING_BLOCK = BLOCK | ENDS_FOREIGN;
constexpr std::uint8_t BREAKING = IS_HTML | ENDS_FOREIGN;
constexpr std::uint8_t VOID = IS_HTML | IS_VOID;
constexpr std::uint8_t TEXT = IS_HTML | HAS_OWN_TEXT;
constexpr auto DATA = text_mode::data;

constexpr element_entry KNOWN[] = {
    {"a", element::a, IS_HTML, DATA},
    {"abbr", element::some, IS_HTML, DATA},
    {"acronym", element::some, IS_HTML, DATA},
    {"address", element::some, BLOCK, DATA},
    {"annotation-xml", element::annotation_xml, 0, DATA},
    {"applet", element::some, IS_HTML, DATA},
    {"area", element::area, VOID, DATA},
    {"article", element::some, BLOCK, DATA},
    {"aside", element::some, BLOCK, DATA},
    {"audio", element::some, IS_HTML, DATA},
    {"b", element::some, BREAKING, DATA},
    {"base", element::base, VOID | IS_OF_HEAD, DATA},
    {"basefont", element::some, VOID | IS_OF_HEAD, DATA},
    {"bdi", element::some, IS_HTML, DATA},
    {"bdo", element::some, IS_HTML, DATA},
    {"bgsound", element::some, VOID | IS_OF_HEAD, DATA},
    {"big", element::some, BREAKING, DATA},
    {"blockquote", element::some, BREAKING_BLOCK, DATA},
    {"body", element::some, BREAKING_BLOCK | OUTLIVES_END, DATA},
    {"br", element::br, VOID | ENDS_FOREIGN, DATA},
    {"button", element::some, IS_HTML, DATA},
    {"canvas", element::some, IS_HTML, DATA},
    {"caption", element::caption, BLOCK, DATA},
    {"center", element::some, BREAKING_BLOCK, DATA},
    {"cite", element::some, IS_HTML, DATA},
    {"code", element::some, BREAKING, DATA},
    {"col", element::column, VOID | IS_BLOCK, DATA},
    {"colgroup", element::column, BLOCK, DATA},
    {"data", element::some, IS_HTML, DATA},
    {"datalist", element::some, IS_HTML, DATA},
    {"dd", element::some, BREAKING_BLOCK, DATA},
    {"del", element::some, IS_HTML, DATA},
    {"details", element::some, BLOCK, DATA},
    {"dfn", element::some, IS_HTML, DATA},
    {"dialog", element::some, BLOCK, DATA},
    {"dir", element::dir, BLOCK, DATA},
    {"div", element::some, BREAKING_BLOCK, DATA},
    {"dl", element::some, BREAKING_BLOCK, DATA},
    {"dt", element::some, BREAKING_BLOCK, DATA},
    {"em", element::some, BREAKING, DATA},
    {"embed", element::some, VOID | ENDS_FOREIGN, DATA},
    {"fieldset", element::some, BLOCK, DATA},
    {"figcaption", element::some, BLOCK, DATA},
    {"figure", element::some, BLOCK, DATA},
    {"font", element::font, IS_HTML, DATA},
    {"footer", element::some, BLOCK, DATA},
    {"form", element::some, BLOCK, DATA},
    {"frame", element::some, VOID, DATA},
    {"frameset", element::frameset, BLOCK, DATA},
    {"h1", element::some, BREAKING_BLOCK, DATA},
    {"h2", element::some, BREAKING_BLOCK, DATA},
    {"h3", element::some, BREAKING_BLOCK, DATA},
    {"h4", element::some, BREAKING_BLOCK, DATA},
    {"h5", element::some, BREAKING_BLOCK, DATA},
    {"h6", element::some, BREAKING_BLOCK, DATA},
    {"head", element::head, BREAKING_BLOCK | IS_OF_HEAD | OUTLIVES_END, DATA},
    {"header", element::some, BLOCK, DATA},
    {"hgroup", element::some, BLOCK, DATA},
    {"hr", element::some, VOID | BREAKING_BLOCK, DATA},
    {"html", element::some, BLOCK | IS_OF_HEAD | OUTLIVES_END, DATA},
    {"i", element::some, BREAKING, DATA},
    {"iframe", element::iframe, TEXT, text_mode::raw},
    {"image", element::image, VOID, DATA},
    {"img", element::img, VOID | ENDS_FOREIGN, DATA},
    {"input", element::some, VOID, DATA},
    {"ins", element::some, IS_HTML, DATA},
    {"kbd", element::some, IS_HTML, DATA},
    {"keygen", element::some, VOID, DATA},
    {"label", element::some, IS_HTML, DATA},
    {"legend", element::some, BLOCK, DATA},
    {"li", element::li, BREAKING_BLOCK, DATA},
    {"link", element::some, VOID | IS_OF_HEAD, DATA},
    {"listing", element::pre, BREAKING_BLOCK, DATA},
    {"main", element::some, BLOCK, DATA},
    {"map", element::some, IS_HTML, DATA},
    {"mark", element::some, IS_HTML, DATA},
    {"marquee", element::some, IS_HTML, DATA},
    {"math", element::math, 0, DATA},
    {"menu", element::menu, BREAKING_BLOCK, DATA},
    {"meta", element::some, VOID | ENDS_FOREIGN | IS_OF_HEAD, DATA},
    {"meter", element::some, IS_HTML, DATA},
    {"nav", element::some, BLOCK, DATA},
    {"nobr", element::some, BREAKING, DATA},
    {"noembed", element::noembed, TEXT, text_mode::raw},
    {"noframes", element::noframes, TEXT | IS_OF_HEAD, text_mode::raw},
    {"noscript", element::some, IS_HTML | IS_OF_HEAD, DATA},
    {"object", element::some, IS_HTML, DATA},
    {"ol", element::ol, BREAKING_BLOCK, DATA},
    {"optgroup", element::some, BLOCK, DATA},
    {"option", element::some, BLOCK, DATA},
    {"output", element::some, IS_HTML, DATA},
    {"p", element::p, BREAKING_BLOCK, DATA},
    {"param", element::some, VOID, DATA},
    {"picture", element::some, IS_HTML, DATA},
    {"plaintext", element::plaintext, TEXT | IS_BLOCK, text_mode::plaintext},
    {"pre", element::pre, BREAKING_BLOCK, DATA},
    {"progress", element::some, IS_HTML, DATA},
    {"q", element::some, IS_HTML, DATA},
    {"rb", element::some, IS_HTML, DATA},
    {"rp", element::some, IS_HTML, DATA},
    {"rt", element::some, IS_HTML, DATA},
    {"rtc", element::some, IS_HTML, DATA},
    {"ruby", element::some, BREAKING, DATA},
    {"s", element::some, BREAKING, DATA},
    {"samp", element::some, IS_HTML, DATA},
    {"script", element::script, TEXT | IS_OF_HEAD, text_mode::script},
    {"search", element::some, BLOCK, DATA},
    {"section", element::some, BLOCK, DATA},
    {"select", element::some, IS_HTML, DATA},
    {"slot", element::some, IS_HTML, DATA},
    {"small", element::some, BREAKING, DATA},
    {"source", element::some, VOID, DATA},
    {"span", element::some, BREAKING, DATA},
    {"strike", element::some, BREAKING, DATA},
    {"strong", element::some, BREAKING, DATA},
    {"style", element::style, TEXT | IS_OF_HEAD, text_mode::raw},
    {"sub", element::some, BREAKING, DATA},
    {"summary", element::some, BLOCK, DATA},
    {"sup", element::some, BREAKING, DATA},
    {"svg", element::svg, 0, DATA},
    {"table", element::table, BREAKING_BLOCK, DATA},
    {"tbody", element::row_group, BLOCK, DATA},
    {"td", element::td, IS_HTML, DATA},
    {"template", element::template_, IS_HTML | IS_OF_HEAD, DATA},
    {"textarea", element::textarea, TEXT, text_mode::rcdata},
    {"tfoot", element::row_group, BLOCK, DATA},
    {"th", element::th, IS_HTML, DATA},
    {"thead", element::row_group, BLOCK, DATA},
    {"time", element::some, IS_HTML, DATA},
    {"title", element::title, TEXT | IS_OF_HEAD, text_mode::rcdata},
    {"tr", element::tr, BLOCK, DATA},
    {"track", element::some, VOID, DATA},
    {"tt", element::some, BREAKING, DATA},
    {"u", element::some, BREAKING, DATA},
    {"ul", element::ul, BREAKING_BLOCK, DATA},
    {"var", element::some, BREAKING, DATA},
    {"video", element::some, IS_HTML, DATA},
    {"wbr", element::some, VOID, DATA},
    {"xmp", element::xmp, TEXT | IS_BLOCK, text_mode::raw},
};

static_assert(sizeof KNOWN / sizeof *KNOWN < KNOWN_ELEMENTS);

} // namespace

constexpr element_table::element_table() noexcept {
    std::uint8_t number = 0;
    for (const element_entry& entry : KNOWN) {
        const std::uint64_t key = key_of(entry.name);
        std::size_t slot = slot_of(key);
        while (m_entries[slot].key != 0) {
            slot = (slot + 1) % SLOTS;
        }
        m_entries[slot] = entry;
        m_entries[slot].key = key;
        m_entries[slot].number = ++number;
    }
}

constexpr element_table TABLE;
const element_table ELEMENTS = TABLE;

} // namespace pageslice::standard
