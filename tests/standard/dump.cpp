// SPDX-License-Identifier: MIT
// Answers the judges of this folder. Standard input holds pages, each after a line with its size; standard
// output gets one answer for each in the same form. The argument says what is asked:
//   encoding                  the encoding's name; the page stands after the label from outside and a '|'
//   url                       a URL's serialized form, "not_a_url" or "needs_idna"; "SIZE|" and a base of
//   that
//                             size stand before it
//   text, rcdata, attribute   the page decoded as a value that stands there
//   page                      title, base, links, images, cells, items and text, in the same form as tokens
//   tokens                    its tokens, each ended by RS, their fields parted by US; names and values
//   decoded
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <string_view>

#include "pageslice/page.h"
#include "pageslice/tokens.h"
#include "standard/encoding.h"
#include "text/character_references.h"
#include "text/string_utils.h"
#include "url/standard_url.h"

namespace {

std::string answer_encoding(std::string_view in) {
    const std::size_t bar = in.find('|');
    return std::string(pageslice::standard::sniff_encoding(in.substr(bar + 1), in.substr(0, bar)));
}

template <pageslice::value_kind KIND>
std::string answer_decoded(std::string_view in) {
    std::string out(pageslice::decoded_bound(in, KIND), '\0');
    out.resize(static_cast<std::size_t>(decode_references(in, KIND, out.data()) - out.data()));
    return out;
}

std::string answer_url(std::string_view in) {
    using pageslice::url_result;
    const std::size_t bar = in.find('|');
    const std::size_t size = std::stoul(std::string(in.substr(0, bar)));
    pageslice::standard_url base;
    std::string out;
    url_result result = size > 0 ? base.parse(in.substr(bar + 1, size)) : url_result::ok;
    result = result == url_result::ok ? base.resolve(in.substr(bar + 1 + size), out) : result;
    return result == url_result::ok ? out : result == url_result::not_a_url ? "not_a_url" : "needs_idna";
}

void add_field(std::string& answer, std::string_view field) {
    answer += field;
    answer += '\x1F';
}

void add_name(std::string& answer, std::string_view name) {
    std::string folded = pageslice::detail::decode(name, PAGESLICE_DECODE_RAW);
    std::transform(folded.begin(), folded.end(), folded.begin(), nFoldAscii);
    add_field(answer, folded);
}

// A field says whether there is a value, for an empty one is another thing than none.
void add_value(std::string& answer, std::string_view value, int decoding) {
    answer += value.data() == nullptr ? '-' : '+';
    add_field(answer, pageslice::detail::decode(value, decoding));
}

std::string answer_tokens(std::string_view in) {
    constexpr const char* KINDS[] = {"text", "start", "end", "comment", "doctype", "cdata"};
    std::string answer;
    pageslice::tokens tokens(in);
    for (const pageslice::token& token : tokens) {
        add_field(answer, KINDS[static_cast<int>(token.kind)]);
        add_field(answer, std::to_string(token.bytes.data() - in.data()));
        add_field(answer, std::to_string(token.bytes.size()));
        add_field(answer, token.is_self_closing || token.force_quirks ? "1" : "0");
        add_name(answer, token.name);
        if (token.kind == pageslice::token_kind::doctype) {
            add_value(answer, token.public_id, PAGESLICE_DECODE_RAW);
            add_value(answer, token.system_id, PAGESLICE_DECODE_RAW);
        }
        for (const pageslice::attribute& attribute : tokens.attributes()) {
            add_name(answer, attribute.name);
            add_field(answer, pageslice::decode(attribute.value, true));
        }
        add_field(answer, pageslice::decode(token));
        answer += '\x1E';
    }
    return answer;
}

std::string answer_page(std::string_view in) {
    pageslice::options options;
    options.rules = pageslice::rules::standard;
    const pageslice::page page(in, options);
    std::string answer;
    const auto add = [&](const char* what, const std::string& value) {
        add_field(answer, what);
        add_field(answer, value);
        answer += '\x1E';
    };
    add("title", page.plain_text(page.title()));
    add("base", pageslice::decode(page.base(), true));
    for (const pageslice::link link : page.links()) {
        add("link", pageslice::decode(link.href, true));
    }
    for (const pageslice::image image : page.images()) {
        add("image", pageslice::decode(image.src, true));
    }
    for (const pageslice::cell cell : page.cells()) {
        add("cell", page.plain_text(cell.text));
    }
    for (const pageslice::item item : page.list_items()) {
        add("item", page.plain_text(item.text));
    }
    add("text", page.plain_text());
    return answer;
}

const std::map<std::string_view, std::string (*)(std::string_view)> QUESTIONS = {
    {"encoding", answer_encoding},
    {"url", answer_url},
    {"tokens", answer_tokens},
    {"page", answer_page},
    {"text", answer_decoded<pageslice::value_kind::text>},
    {"rcdata", answer_decoded<pageslice::value_kind::rcdata>},
    {"attribute", answer_decoded<pageslice::value_kind::attribute>},
};

bool read_page(std::string& page) {
    std::size_t size = 0;
    if (!(std::cin >> size)) {
        return false;
    }
    std::cin.get(); // the line's end
    page.resize(size);
    return static_cast<bool>(std::cin.read(page.data(), static_cast<std::streamsize>(size)));
}

} // namespace

int main(int count, char** arguments) {
    const auto question = QUESTIONS.find(count == 2 ? arguments[1] : "");
    if (question == QUESTIONS.end()) {
        std::cerr << "no such question\n";
        return 2;
    }
    std::ios::sync_with_stdio(false);
    std::string page;
    while (read_page(page)) {
        const std::string answer = question->second(page);
        std::cout << answer.size() << '\n' << answer;
    }
    return 0;
}
