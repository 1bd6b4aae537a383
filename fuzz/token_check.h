// SPDX-License-Identifier: MIT
// The library's tokens of a page, written out, beside those of the model.
#ifndef PAGESLICE_FUZZ_TOKEN_CHECK_H
#define PAGESLICE_FUZZ_TOKEN_CHECK_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "fuzz/standard_model.h"
#include "pageslice/tokens.h"

namespace invariants {

// Where an empty slice stands is of no interest, but whether it is there.
inline std::string Place(std::string_view page, std::string_view slice) {
    if (slice.empty())
        return slice.data() == nullptr ? " none" : " empty";
    return " " + std::to_string(slice.data() - page.data()) + "+" + std::to_string(slice.size());
}

inline std::string Line(std::string_view page, const pageslice::token& t) {
    constexpr const char* KINDS[] = {"text", "start tag", "end tag", "comment", "doctype", "cdata"};
    const bool bForeign = t.is_foreign && t.kind == pageslice::token_kind::start_tag;
    const bool bSaysText = t.kind != pageslice::token_kind::start_tag &&
                           t.kind != pageslice::token_kind::end_tag &&
                           t.kind != pageslice::token_kind::doctype;
    return KINDS[static_cast<int>(t.kind)] + Place(page, t.bytes) +
           (t.name.empty() ? "" : " name" + Place(page, t.name)) +
           (t.is_self_closing ? " self-closing" : "") + (t.force_quirks ? " quirks" : "") +
           (bForeign ? " foreign" : "") +
           (bSaysText && !t.text.empty() ? " text" + Place(page, t.text) : "") +
           (bSaysText ? " decoding " + std::to_string(t.decoding) : "") +
           (t.kind == pageslice::token_kind::doctype
                ? " ids" + Place(page, t.public_id) + Place(page, t.system_id)
                : "");
}

inline std::string TokensOf(std::string_view page) {
    std::string out;
    pageslice::tokens tokens(page);
    for (const pageslice::token& t : tokens) {
        out += Line(page, t);
        for (const pageslice::attribute& a : tokens.attributes()) {
            pageslice::attribute found;
            out += ", " + Place(page, a.name) + " =" + Place(page, a.value);
            if (!tokens.find(a.name, found) || found.name.data() != a.name.data() ||
                found.value.data() != a.value.data())
                out += " not found";
        }
        out += '\n';
    }
    return out;
}

inline std::string ModelTokensOf(std::string_view page) {
    std::string out;
    for (const model::token& m : model::tokens(page)) {
        if (!m.sure)
            break;
        pageslice::token t = {model::bytes(page, m.bytes), model::bytes(page, m.name),
                              model::bytes(page, m.text), model::bytes(page, m.public_id),
                              model::bytes(page, m.system_id)};
        t.kind = static_cast<pageslice::token_kind>(m.what);
        t.decoding = m.decoding;
        t.is_self_closing = m.self_closing;
        t.is_foreign = m.foreign;
        t.force_quirks = m.force_quirks;
        out += Line(page, t);
        for (const model::attribute& a : m.attributes)
            out += ", " + Place(page, model::bytes(page, a.name)) + " =" +
                   Place(page, model::bytes(page, a.value));
        out += '\n';
    }
    return out;
}

inline void CheckTokens(std::string_view page) {
    const std::string found = TokensOf(page), wanted = ModelTokensOf(page);
    if (!found.starts_with(wanted) || (found != wanted && model::tokens(page).back().sure))
        throw std::logic_error("tokens\n--- found\n" + found + "--- wanted\n" + wanted);
}

} // namespace invariants

#endif
