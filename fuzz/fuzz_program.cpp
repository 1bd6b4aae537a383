// SPDX-License-Identifier: MIT
// What the program prints of a page: JSON that says where everything stands, the annotated page that shows
// the source unchanged, and lines for people that give no orders to a terminal. The first line is the page's
// address.
#include <nlohmann/json.hpp>

#include <functional>
#include <sstream>

#include "fuzz/invariants.h"
#include "tools/pageslice/display.h"
#include "tools/pageslice/printers.h"

namespace {

using invariants::Require;

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const program::Decoded decoded = program::decodeUtf8(bytes);
        if (!decoded.valid)
            return false;
        bytes.remove_prefix(decoded.size);
    }
    return true;
}

std::string Printed(const std::function<void(program::Report&)>& print) {
    std::string all;
    program::Report report([&](std::string_view piece) { all += piece; });
    print(report);
    report.passRest();
    return all;
}

// A value with its place: it begins as the bytes there do, where those need no other encoding.
void CheckPlace(const nlohmann::json& value, const nlohmann::json& place, const program::Page& page) {
    if (place.is_null())
        return;
    const int nFirst = place.at(0), nEnd = 1 + int{place.at(1)};
    Require(0 <= nFirst && nFirst <= nEnd && nEnd <= std::ssize(page.bytes()), "a place outside the page");
    const auto bytes =
        page.bytes().substr(static_cast<std::size_t>(nFirst), static_cast<std::size_t>(nEnd - nFirst));
    if (page.encoding() == "UTF-8" && IsUtf8(bytes))
        Require(bytes.starts_with(value.get<std::string>()), "a value that does not stand there");
}

void CheckJson(const program::Page& page) {
    program::Options options;
    options.sections = program::SECTIONS_ALL;
    const nlohmann::json found = nlohmann::json::parse(
        Printed([&](program::Report& report) { program::printAsJson(page, {}, options, report); }));
    Require(found.at("bytes") == page.bytes().size() && !found.contains("error"), "the whole page");
    CheckPlace(found.at("title"), found.at("title_at"), page);
    for (const char* const pSection : {"links", "images", "items", "cells"})
        for (const nlohmann::json& element : found.at(pSection))
            for (const auto& [name, value] : element.items())
                if (name == "at" || name.ends_with("_at"))
                    CheckPlace(element.at(name == "at" ? "text" : name.substr(0, name.size() - 3)), value,
                               page);
}

std::size_t Count(const std::string& s, const std::string& piece) {
    std::size_t nFound = 0;
    for (std::size_t i = s.find(piece); i != s.npos; i = s.find(piece, i + 1))
        ++nFound;
    return nFound;
}

// The text between tags, of markup with three references.
std::string TextOf(std::string s) {
    for (std::size_t i; (i = s.find('<')) != s.npos;)
        s.erase(i, s.find('>', i) + 1 - i);
    for (const auto& [from, to] : {std::pair{"&lt;", "<"}, {"&quot;", "\""}, {"&amp;", "&"}})
        for (std::size_t i = s.find(from); i != s.npos; i = s.find(from, i + 1))
            s.replace(i, std::strlen(from), to);
    return s;
}

void CheckAnnotated(const program::Page& page) {
    program::Options options;
    options.sections = program::SECTIONS_ALL;
    const std::string all =
        Printed([&](program::Report& report) { program::printAnnotated(page, {}, options, report); });
    Require(IsUtf8(all), "an annotated page that is not UTF-8");
    const auto between = [&](const char* pFrom, const char* pTo) {
        const std::size_t nFrom = all.find('>', all.find(pFrom)) + 1;
        return all.substr(nFrom, all.find(pTo, nFrom) - nFrom);
    };
    const std::string main = between("<main ", "</main>"), list = between(" id=slices", "</pre>");
    for (const auto& [open, close] :
         {std::pair{"<a ", "</a>"}, {"<span ", "</span>"}, {"<section>", "</section>"}})
        Require(Count(main, open) == Count(main, close), "elements without an end");
    std::istringstream lines(list);
    std::string kind;
    for (std::size_t nFirst, nLast; lines >> kind >> nFirst >> nLast; std::getline(lines, kind))
        Require(nFirst <= nLast && nLast < page.bytes().size(), "a mark outside the page");

    std::string source(page.bytes());
    for (std::size_t i = 0; i < source.size(); ++i)
        if (source[i] == '\r')
            source.replace(i, source.compare(i, 2, "\r\n") == 0 ? 2 : 1, "\n");
    if (std::none_of(source.begin(), source.end(),
                     [](char c) { return static_cast<unsigned char>(c) > 127; }))
        Require(TextOf(main) == '\n' + program::legible(source), "another source");
}

void CheckForPeople(const program::Page& page) {
    program::Options options;
    options.toTerminal = true;
    for (const unsigned nSections : {unsigned{program::SECTIONS_ALL}, unsigned{program::SECTION_LINKS}}) {
        options.sections = nSections;
        std::string_view rest, shown;
        const std::string all =
            Printed([&](program::Report& report) { program::printForPeople(page, options, report); });
        for (rest = all; !rest.empty(); rest.remove_prefix(shown.size())) {
            const program::Decoded decoded = program::decodeUtf8(rest);
            shown = rest.substr(0, decoded.size);
            Require(decoded.valid, "lines that are not UTF-8");
            Require(shown == "\n" || shown == "\t" || !program::isUnseen(decoded.character),
                    "an order to the terminal");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const text tAll = invariants::PageOf(pData, n);
    const std::string_view all(tAll.m_pStart, n);
    const std::size_t nUrl = std::min(all.find('\n'), n);
    const std::string_view url = all.substr(0, nUrl);
    for (const auto rules : {pageslice::rules::classic, pageslice::rules::standard}) {
        const program::Page page({"", url, rules, ""}, all.substr(std::min(nUrl + 1, n)));
        CheckJson(page);
        CheckAnnotated(page);
        CheckForPeople(page);
    }
    return 0;
}
