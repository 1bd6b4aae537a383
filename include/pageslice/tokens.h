// SPDX-License-Identifier: MIT
// A page's tokens for hosts in C++: the tokenizer of the HTML Standard, header-only over tokens_c.h, which
// says what tokens are.
//
//   pageslice::tokens tokens(html);
//   for (const pageslice::token& token : tokens) {
//       if (token.kind == pageslice::token_kind::start_tag && token.name == "a") {
//           for (const pageslice::attribute& attribute : tokens.attributes()) {
//               std::cout << attribute.name << '=' << pageslice::decode(attribute.value, true) << '\n';
//           }
//       }
//   }
//
// Lifetime: the page's bytes are never copied and must live, unchanged, as long as any view of them; the
// compiler refuses a temporary that owns them. Errors and hosts without exceptions: as page.h says.
#ifndef PAGESLICE_TOKENS_H
#define PAGESLICE_TOKENS_H

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "pageslice/page.h"
#include "pageslice/tokens_c.h"

namespace pageslice {

enum class token_kind {
    text = PAGESLICE_TOKEN_TEXT,
    start_tag = PAGESLICE_TOKEN_START_TAG,
    end_tag = PAGESLICE_TOKEN_END_TAG,
    comment = PAGESLICE_TOKEN_COMMENT,
    doctype = PAGESLICE_TOKEN_DOCTYPE,
    cdata = PAGESLICE_TOKEN_CDATA
};

// One token, in views into the page's bytes, as pageslice_token tells.
struct token {
    std::string_view bytes;     // all of it
    std::string_view name;      // of a tag or a doctype
    std::string_view text;      // what a text, comment or CDATA section says
    std::string_view public_id; // of a doctype; null data() when not given
    std::string_view system_id;
    token_kind kind = token_kind::text;
    int decoding = PAGESLICE_DECODE_TEXT; // of `text`
    bool is_self_closing = false;
    bool is_foreign = false;
    bool force_quirks = false;
};

// An attribute of a tag. `value` has a null data() where there is no '='.
struct attribute {
    std::string_view name;
    std::string_view value;
};

// Reads one page, once, from its start to its end. It moves but does not copy; one that was moved from is at
// its end.
class tokens {
public:
    explicit tokens(std::string_view html) : m_tokens() {
        pageslice_tokens* handle = nullptr;
        detail::check(pageslice_open_tokens(html.data(), html.size(), &handle));
        m_tokens.reset(handle);
    }
    template <class Owner, class = detail::if_owning<Owner>>
    explicit tokens(Owner&&) = delete;

    // False at the page's end.
    [[nodiscard]] bool next(token& found) noexcept {
        pageslice_token c = {};
        if (pageslice_next_token(m_tokens.get(), &c, sizeof c) != PAGESLICE_OK) {
            return false;
        }
        found = {detail::view(c.bytes),
                 detail::view(c.name),
                 detail::view(c.text),
                 detail::view(c.public_id),
                 detail::view(c.system_id),
                 static_cast<token_kind>(c.kind),
                 c.decoding,
                 c.is_self_closing != 0,
                 c.is_foreign != 0,
                 c.force_quirks != 0};
        return true;
    }

    // The attributes of the tag read last, the first of each name, in the order of the page. Until the next
    // token is read.
    class attribute_range {
    public:
        class iterator {
        public:
            using value_type = attribute;
            using difference_type = std::ptrdiff_t;
            using reference = attribute;
            using pointer = void;
            using iterator_category = std::input_iterator_tag;

            iterator() noexcept = default;
            iterator(const pageslice_tokens* from, std::size_t index) noexcept
                : m_from(from), m_index(index) {}
            attribute operator*() const noexcept { return at(m_from, m_index); }
            iterator& operator++() noexcept {
                ++m_index;
                return *this;
            }
            iterator operator++(int) noexcept {
                const iterator before = *this;
                ++*this;
                return before;
            }
            friend bool operator==(const iterator& a, const iterator& b) noexcept {
                return a.m_index == b.m_index;
            }
            friend bool operator!=(const iterator& a, const iterator& b) noexcept { return !(a == b); }

        private:
            const pageslice_tokens* m_from = nullptr;
            std::size_t m_index = 0;
        };

        attribute_range(const pageslice_tokens* from, std::size_t size) noexcept
            : m_from(from), m_size(size) {}
        [[nodiscard]] iterator begin() const noexcept { return {m_from, 0}; }
        [[nodiscard]] iterator end() const noexcept { return {m_from, m_size}; }
        [[nodiscard]] std::size_t size() const noexcept { return m_size; }
        [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
        attribute operator[](std::size_t index) const noexcept { return at(m_from, index); }

    private:
        static attribute at(const pageslice_tokens* from, std::size_t index) noexcept {
            pageslice_attribute c = {};
            pageslice_get_attribute(from, index, &c, sizeof c);
            return {detail::view(c.name), detail::view(c.value)};
        }

        const pageslice_tokens* m_from;
        std::size_t m_size;
    };
    [[nodiscard]] attribute_range attributes() {
        std::size_t size = 0;
        if (m_tokens != nullptr) {
            detail::check(pageslice_read_attributes(m_tokens.get(), &size));
        }
        return {m_tokens.get(), size};
    }

    // The attribute of that name of the tag read last, whatever the case of its letters; false without one.
    [[nodiscard]] bool find(std::string_view name, attribute& found) const noexcept {
        pageslice_attribute c = {};
        if (pageslice_find_attribute(m_tokens.get(), name.data(), name.size(), &c, sizeof c) !=
            PAGESLICE_OK) {
            return false;
        }
        found = {detail::view(c.name), detail::view(c.value)};
        return true;
    }

    // For `for`: reads on from where it stands.
    class iterator {
    public:
        using value_type = token;
        using difference_type = std::ptrdiff_t;
        using reference = const token&;
        using pointer = const token*;
        using iterator_category = std::input_iterator_tag;

        iterator() noexcept = default;
        explicit iterator(tokens& from) noexcept : m_from(&from) { ++*this; }
        reference operator*() const noexcept { return m_token; }
        pointer operator->() const noexcept { return &m_token; }
        iterator& operator++() noexcept {
            if (!m_from->next(m_token)) {
                m_from = nullptr;
            }
            return *this;
        }
        iterator operator++(int) noexcept {
            const iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const iterator& a, const iterator& b) noexcept { return a.m_from == b.m_from; }
        friend bool operator!=(const iterator& a, const iterator& b) noexcept { return !(a == b); }

    private:
        tokens* m_from = nullptr;
        token m_token = {};
    };
    [[nodiscard]] iterator begin() noexcept { return iterator(*this); }
    [[nodiscard]] iterator end() noexcept { return {}; }

private:
    struct closer {
        void operator()(pageslice_tokens* handle) const noexcept { pageslice_close_tokens(handle); }
    };

    std::unique_ptr<pageslice_tokens, closer> m_tokens;
};

// What a token's text says, its references decoded.
[[nodiscard]] inline std::string decode(const token& of) {
    return detail::decode(of.text, of.decoding);
}

} // namespace pageslice

#endif
