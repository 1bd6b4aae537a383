// SPDX-License-Identifier: MIT
#include "peers.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#if defined(PAGESLICE_WITH_LIBXML2)
#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>
#endif
#if defined(PAGESLICE_WITH_GUMBO)
#include <gumbo.h>
#endif

namespace bench {

namespace {

// What a peer collects of one page. It is kept cheap, so that a peer's time is the peer's own: all URLs stand
// in one string, and a link's text is a range of the plain text.
class PeerAnswer {
public:
    explicit PeerAnswer(std::size_t pageSize) { m_text.reserve(pageSize); }

    void OpenLink(std::string_view href) {
        m_urls += href;
        m_links.push_back({m_urls.size(), m_text.size(), m_text.size()});
        m_inLink = true;
    }
    void CloseLink() {
        if (m_inLink) {
            m_links.back().textEnd = m_text.size();
            m_inLink = false;
        }
    }
    void AddImage(std::string_view source) {
        m_imageUrls += source;
        m_imageUrlEnds.push_back(m_imageUrls.size());
    }
    void OpenTitle() { m_inTitle = true; }
    void CloseTitle() { m_inTitle = false; }
    // Every tag separates words.
    void AddTag() {
        if (!m_text.empty() && m_text.back() != ' ') {
            m_text += ' ';
        }
    }
    // Runs of LF, CR and space become one space.
    void AddText(std::string_view characters);

    void CountInto(Found* found) const;

private:
    struct Link {
        std::size_t urlEnd;
        std::size_t textBegin;
        std::size_t textEnd;
    };

    std::string m_urls; // of links
    std::vector<Link> m_links;
    std::string m_imageUrls;
    std::vector<std::size_t> m_imageUrlEnds;
    std::string m_text;
    std::string m_title;
    bool m_inLink = false;
    bool m_inTitle = false;
};

void PeerAnswer::AddText(std::string_view characters) {
    if (m_inTitle) {
        m_title += characters;
    }
    constexpr std::string_view SEPARATORS = " \n\r";
    const auto isSeparator = [](char c) { return c == ' ' || c == '\n' || c == '\r'; };
    while (!characters.empty()) {
        const auto wordEnd = std::find_if(characters.begin(), characters.end(), isSeparator);
        m_text.append(characters.begin(), wordEnd);
        if (wordEnd == characters.end()) {
            return;
        }
        AddTag();
        const std::size_t next =
            characters.find_first_not_of(SEPARATORS, static_cast<std::size_t>(wordEnd - characters.begin()));
        characters.remove_prefix(std::min(next, characters.size()));
    }
}

void PeerAnswer::CountInto(Found* found) const {
    if (found != nullptr) {
        found->links += m_links.size();
        found->images += m_imageUrlEnds.size();
        found->textBytes += m_text.size();
        found->titleBytes += m_title.size();
    }
}

} // namespace

#if defined(PAGESLICE_WITH_LIBXML2)

namespace {

std::string_view View(const xmlChar* s) {
    return reinterpret_cast<const char*>(s);
}

PeerAnswer& AnswerOf(void* context) {
    return *static_cast<PeerAnswer*>(static_cast<htmlParserCtxtPtr>(context)->_private);
}

// Names and values in turn, a null behind the last name; empty without a value.
std::string_view AttributeNamed(std::string_view name, const xmlChar** attributes) {
    for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
        if (View(attributes[0]) == name) {
            return attributes[1] == nullptr ? std::string_view() : View(attributes[1]);
        }
    }
    return {};
}

void OnStart(void* context, const xmlChar* name, const xmlChar** attributes) {
    PeerAnswer& answer = AnswerOf(context);
    answer.AddTag();
    if (View(name) == "a") {
        if (const std::string_view href = AttributeNamed("href", attributes); !href.empty()) {
            answer.OpenLink(href);
        }
    } else if (View(name) == "img") {
        if (const std::string_view source = AttributeNamed("src", attributes); !source.empty()) {
            answer.AddImage(source);
        }
    } else if (View(name) == "title") {
        answer.OpenTitle();
    }
}

void OnEnd(void* context, const xmlChar* name) {
    PeerAnswer& answer = AnswerOf(context);
    if (View(name) == "a") {
        answer.CloseLink();
    } else if (View(name) == "title") {
        answer.CloseTitle();
    }
    answer.AddTag();
}

void OnText(void* context, const xmlChar* characters, int n) {
    AnswerOf(context).AddText({reinterpret_cast<const char*>(characters), static_cast<std::size_t>(n)});
}

} // namespace

void RunLibxml2(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    htmlSAXHandler handler{};
    handler.startElement = OnStart;
    handler.endElement = OnEnd;
    handler.characters = OnText;
    handler.ignorableWhitespace = OnText;
    handler.cdataBlock = OnText;

    PeerAnswer answer(page.Size());
    const htmlParserCtxtPtr context = htmlCreateMemoryParserCtxt(page.Data(), static_cast<int>(page.Size()));
    if (context == nullptr) {
        return; // what libxml2 says to an empty page
    }
    htmlCtxtUseOptions(context, HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_IGNORE_ENC);
    // Bytes are taken as they are, as in our own job: no conversion between character sets.
    xmlSwitchEncoding(context, XML_CHAR_ENCODING_UTF8);
    *context->sax = handler;
    context->_private = &answer;
    htmlParseDocument(context);
    htmlFreeParserCtxt(context);
    answer.CountInto(found);
}

#endif

#if defined(PAGESLICE_WITH_GUMBO)

namespace {

std::string_view AttributeNamed(const char* name, const GumboElement& element) {
    const GumboAttribute* const attribute = gumbo_get_attribute(&element.attributes, name);
    return attribute == nullptr ? std::string_view() : attribute->value;
}

void Enter(const GumboElement& element, PeerAnswer& answer) {
    answer.AddTag();
    if (element.tag == GUMBO_TAG_A) {
        if (const std::string_view href = AttributeNamed("href", element); !href.empty()) {
            answer.OpenLink(href);
        }
    } else if (element.tag == GUMBO_TAG_IMG) {
        if (const std::string_view source = AttributeNamed("src", element); !source.empty()) {
            answer.AddImage(source);
        }
    } else if (element.tag == GUMBO_TAG_TITLE) {
        answer.OpenTitle();
    }
}

void Leave(const GumboElement& element, PeerAnswer& answer) {
    if (element.tag == GUMBO_TAG_A) {
        answer.CloseLink();
    } else if (element.tag == GUMBO_TAG_TITLE) {
        answer.CloseTitle();
    }
    answer.AddTag();
}

// Walks the tree without recursion: each node knows its parent and its place there.
void Walk(const GumboNode* root, PeerAnswer& answer) {
    const GumboNode* node = root;
    unsigned child = 0; // the child of `node` that comes next
    while (node != nullptr) {
        const GumboVector& children = node->v.element.children;
        if (child == 0) {
            Enter(node->v.element, answer);
        }
        while (child < children.length) {
            const auto* const next = static_cast<const GumboNode*>(children.data[child]);
            if (next->type == GUMBO_NODE_ELEMENT || next->type == GUMBO_NODE_TEMPLATE) {
                break;
            }
            if (next->type != GUMBO_NODE_COMMENT) {
                answer.AddText(next->v.text.text);
            }
            ++child;
        }
        if (child < children.length) {
            node = static_cast<const GumboNode*>(children.data[child]);
            child = 0;
            continue;
        }
        Leave(node->v.element, answer);
        child = static_cast<unsigned>(node->index_within_parent) + 1;
        node = node == root ? nullptr : node->parent;
    }
}

} // namespace

void RunGumbo(const Page& page, HtmlParser& /*indexed*/, Found* found) {
    PeerAnswer answer(page.Size());
    GumboOutput* const output = gumbo_parse_with_options(&kGumboDefaultOptions, page.Data(), page.Size());
    Walk(output->root, answer);
    gumbo_destroy_output(&kGumboDefaultOptions, output);
    answer.CountInto(found);
}

#endif

} // namespace bench
