// SPDX-License-Identifier: MIT
#include <memory>
#include <string_view>
#include <vector>

#include "c_api/results.h"
#include "pageslice/tokens_c.h"
#include "standard/attributes.h"
#include "standard/doctype.h"
#include "standard/tokenizer.h"

using pageslice::standard::token_kind;

static_assert(PAGESLICE_TOKEN_TEXT == static_cast<int>(token_kind::text) &&
                  PAGESLICE_TOKEN_START_TAG == static_cast<int>(token_kind::start_tag) &&
                  PAGESLICE_TOKEN_END_TAG == static_cast<int>(token_kind::end_tag) &&
                  PAGESLICE_TOKEN_COMMENT == static_cast<int>(token_kind::comment) &&
                  PAGESLICE_TOKEN_DOCTYPE == static_cast<int>(token_kind::doctype) &&
                  PAGESLICE_TOKEN_CDATA == static_cast<int>(token_kind::cdata),
              "a code and a kind are the same number");

struct pageslice_tokens {
    explicit pageslice_tokens(std::string_view html) noexcept : tokenizer(html) {}

    bool is_at_tag() const noexcept {
        return last.kind == token_kind::start_tag || last.kind == token_kind::end_tag;
    }

    pageslice::standard::tokenizer tokenizer;
    pageslice::standard::token last{};
};

namespace pageslice {
namespace {

pageslice_token token_of(const standard::token& from) noexcept {
    pageslice_token to = {};
    to.bytes = given(from.bytes);
    to.name = given(from.name);
    to.kind = static_cast<int>(from.kind);
    to.decoding = static_cast<int>(from.decoding);
    to.is_foreign = from.is_foreign ? 1 : 0;
    if (from.kind == token_kind::doctype) {
        const standard::doctype type = standard::read_doctype(from.text, from.is_cut_off);
        to.name = given(type.name);
        to.public_id = given(type.public_id);
        to.system_id = given(type.system_id);
        to.force_quirks = type.force_quirks ? 1 : 0;
    } else {
        to.text = given(from.text);
    }
    if (from.kind == token_kind::start_tag || from.kind == token_kind::end_tag) {
        to.is_self_closing = standard::is_self_closing(from.name_end(), from.close()) ? 1 : 0;
    }
    return to;
}

pageslice_attribute attribute_of(const standard::attribute& from) noexcept {
    return {given(from.name), given(from.value)};
}

} // namespace
} // namespace pageslice

int pageslice_open_tokens(const char* html, size_t html_size, pageslice_tokens** tokens) noexcept {
    if (tokens == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    *tokens = nullptr;
    if (!pageslice::is_range(html, html_size)) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        *tokens = std::make_unique<pageslice_tokens>(pageslice::view(html, html_size)).release();
        return PAGESLICE_OK;
    });
}

void pageslice_close_tokens(pageslice_tokens* tokens) noexcept {
    delete tokens;
}

int pageslice_next_token(pageslice_tokens* tokens, pageslice_token* token, size_t token_size) noexcept {
    if (tokens == nullptr || token == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    tokens->tokenizer.forget_attributes();
    if (!tokens->tokenizer.next(tokens->last)) {
        tokens->last = {};
        return PAGESLICE_NOT_FOUND;
    }
    pageslice::give(pageslice::token_of(tokens->last), token, token_size);
    return PAGESLICE_OK;
}

int pageslice_read_attributes(pageslice_tokens* tokens, size_t* count) noexcept {
    if (tokens == nullptr || count == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        if (tokens->is_at_tag()) {
            tokens->tokenizer.read_attributes(tokens->last);
        }
        *count = tokens->tokenizer.attributes().size();
        return PAGESLICE_OK;
    });
}

int pageslice_get_attribute(const pageslice_tokens* tokens, size_t index, pageslice_attribute* attribute,
                            size_t attribute_size) noexcept {
    if (tokens == nullptr || attribute == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    const std::vector<pageslice::standard::attribute>& all = tokens->tokenizer.attributes();
    if (index >= all.size()) {
        return PAGESLICE_NOT_FOUND;
    }
    pageslice::give(pageslice::attribute_of(all[index]), attribute, attribute_size);
    return PAGESLICE_OK;
}

int pageslice_find_attribute(const pageslice_tokens* tokens, const char* name, size_t name_size,
                             pageslice_attribute* attribute, size_t attribute_size) noexcept {
    if (tokens == nullptr || attribute == nullptr || !pageslice::is_range(name, name_size)) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    if (!tokens->is_at_tag()) {
        return PAGESLICE_NOT_FOUND;
    }
    const pageslice::standard::attribute found = pageslice::standard::find_attribute(
        tokens->last.name_end(), tokens->last.close() + 1, pageslice::view(name, name_size));
    if (found.name.data() == nullptr) {
        return PAGESLICE_NOT_FOUND;
    }
    pageslice::give(pageslice::attribute_of(found), attribute, attribute_size);
    return PAGESLICE_OK;
}
