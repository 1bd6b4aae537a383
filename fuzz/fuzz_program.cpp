// SPDX-License-Identifier: MIT
// What the program prints of a page: JSON that says where everything stands, the annotated page that shows
// the source unchanged, and lines for people that give no orders to a terminal. The first line is the page's
// address, and a request of a stream.
#include <nlohmann/json.hpp>

#include <functional>
#include <map>
#include <sstream>

#include "fuzz/invariants.h"
#include "tools/pageslice/display.h"
#include "tools/pageslice/failure.h"
#include "tools/pageslice/printers.h"
#include "tools/pageslice/request.h"

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

// What another reader of JSON takes is taken here too, and holds the same. Of members named twice it keeps
// the last, unseen, and it passes over a byte order mark; long addresses are refused here on purpose.
void CheckRequest(std::string_view bytes) {
    std::map<std::string, int> names;
    const auto count = [&](int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
        if (depth == 1 && event == nlohmann::json::parse_event_t::key)
            ++names[parsed];
        return true;
    };
    const nlohmann::json other = nlohmann::json::parse(bytes, count, false);
    const auto is = [&](const char* pName, auto fits) {
        return !other.contains(pName) || fits(other[pName]);
    };
    const bool bTaken =
        other.is_object() && other.contains("html") && !bytes.starts_with('\xEF') &&
        std::all_of(names.begin(), names.end(), [](const auto& name) { return name.second == 1; }) &&
        is("html", [](const auto& html) { return html.is_string(); }) &&
        is("url",
           [&](const auto& url) { return url.is_null() || (url.is_string() && bytes.size() <= 8192); }) &&
        is("id", [&](const auto& id) { return !id.is_structured() && bytes.size() <= 8192; });
    program::Bytes line, repaired;
    line.append(bytes);
    program::Request request;
    try {
        program::readRequest(line, repaired, request);
    } catch (const program::Failure&) {
        Require(!bTaken, "a request that is refused");
        return;
    }
    Require(IsUtf8(request.html) && IsUtf8(request.url), "a request that is not UTF-8");
    if (!bTaken)
        return;
    Require(!request.isRepaired && request.html == other["html"].get<std::string>(), "another page");
    Require(request.url ==
                (other.value("url", nlohmann::json()).is_string() ? other["url"].get<std::string>() : ""),
            "another address");
    Require(request.id.empty() ? !other.contains("id") : nlohmann::json::parse(request.id) == other["id"],
            "another id");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const text tAll = invariants::PageOf(pData, n);
    const std::string_view all(tAll.m_pStart, n);
    const std::size_t nUrl = std::min(all.find('\n'), n);
    const std::string_view url = all.substr(0, nUrl);
    CheckRequest(url);
    CheckRequest(nlohmann::json({{"html", all}, {"more", {url}}})
                     .dump(-1, ' ', n % 2 == 0, nlohmann::json::error_handler_t::replace));
    for (const auto rules : {pageslice::rules::classic, pageslice::rules::standard}) {
        const program::Page page({"", url, rules, ""}, all.substr(std::min(nUrl + 1, n)));
        CheckJson(page);
        CheckAnnotated(page);
        CheckForPeople(page);
    }
    return 0;
}
