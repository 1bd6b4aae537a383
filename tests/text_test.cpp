// SPDX-License-Identifier: MIT
#include <cstring>
#include <functional>
#include <map>
#include <sstream>
#include <vector>

#include "page_fixture.h"
#include "text/string_utils.h"

namespace {

using namespace std::string_literals;

int Sign(int n) {
    return (n > 0) - (n < 0);
}

TEST(Text, Answers) {
    RunCases("slices", [](const text& t) {
        std::string copied = String(t).c_str(); // a NUL ends the copy, zeros follow
        copied.resize(static_cast<std::size_t>(t.GetLength()) + 1, '\0');
        const std::unique_ptr<char[]> pCopy(t.pMakeCopy());
        EXPECT_EQ(std::string(pCopy.get(), copied.size()), copied);
        return Joined(t.nNumWords(), t.IsAlphabetic(), t.ConvertToAlign());
    });
}

TEST(Text, Numbers) {
    RunCases("numbers", [](const text& t) {
        const std::string s = String(t); // reading goes on behind the slice
        return std::to_string(text(s.c_str(), s.c_str(), 1).ConvertToInt());
    });
}

TEST(Text, Comparisons) {
    RunCases("comparisons", [](const text& t) {
        const text a(t.m_pStart, std::find(t.m_pStart, t.m_pEnd, '|') - 1, 0), b(a.m_pEnd + 2, t.m_pEnd, 0);
        const int n = Sign(a.strncmp(b));
        EXPECT_EQ(Sign(b.strncmp(a)), -n);
        EXPECT_EQ(a == b, n == 0);
        EXPECT_EQ(a < b, n < 0);
        EXPECT_EQ(b == 'a', String(b) == "a");
        return std::to_string(n);
    });
    EXPECT_EQ(text("ab").strncmp("abcd"), 1);
    EXPECT_EQ(text("abcd").strncmp("ab"), -1);
}

TEST(Text, EmptyIsNotZeroLength) {
    const text none;
    EXPECT_EQ(none.IsEmpty(), 1);
    EXPECT_EQ(none.GetLength(), 1);
    EXPECT_EQ(none.pMakeCopy(), nullptr);
    EXPECT_EQ(none.ConvertToInt(), 0);
    EXPECT_EQ(Joined(none.nNumWords(), none.IsAlphabetic(), none.ConvertToAlign()), "0|1|0");
    EXPECT_EQ(none == 'a', 0);
    EXPECT_EQ(none == "a", 0);
    EXPECT_EQ(text("").IsEmpty(), 0);
    EXPECT_EQ(text("").GetLength(), 0);
    const char s[] = "abc";
    const text reversed(s + 2, s, 0);
    EXPECT_EQ(Joined(reversed.nNumWords(), reversed.IsAlphabetic(), reversed.GetLength()), "0|1|-1");
}

TEST(Text, IsSetAndCompared) {
    const char s[] = "abc";
    const auto fields = [&s](const text& t) {
        return Joined(t.m_pStart - s, t.m_pEnd - s, t.bIsNullTerminated());
    };
    text t, copy(s);
    t = copy;
    EXPECT_EQ(fields(t), "0|2|1");
    t.Set(s, s + 1, 0);
    EXPECT_EQ(fields(t), "0|1|0");
    EXPECT_TRUE(copy.Surrounds(t));
    EXPECT_TRUE(copy.Surrounds(copy));
    EXPECT_FALSE(t.Surrounds(copy));
    copy.Set(t);
    EXPECT_EQ(fields(copy), "0|1|0");
    copy.Clear();
    EXPECT_EQ(copy.IsEmpty(), 1);
    EXPECT_EQ(copy.m_pEnd, nullptr);
}

TEST(StringUtils, ClassifyEveryByte) {
    const auto in = [](const char* set, char c) { return c != 0 && std::strchr(set, c) != nullptr; };
    for (int i = 0; i < 256; ++i) {
        const char s[] = {static_cast<char>(i), '\0'}, folded[] = {static_cast<char>(i ^ 0x20), '\0'};
        const bool bLetter = in("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", *s);
        EXPECT_EQ(Joined(bIsWhiteSpace(*s), bIsSeparator(*s), text().IsAlphabetic(*s),
                         nStrNICmp(s, folded, 1) == 0),
                  Joined(in("\t\n\r ", *s), in("\t\n\r ./", *s), bLetter, bLetter))
            << i;
    }
}

TEST(StringUtils, BoundedComparisons) {
    RunCases("bounded comparisons", [](const text& t) {
        const auto parts = PartsOf(t);
        const char *const a = parts[1].c_str(), *const b = parts[2].c_str();
        const auto n = static_cast<unsigned>(std::stoi(parts[0]));
        return Joined(Sign(nStrNCmp(a, b, n)), Sign(nStrNICmp(a, b, n)));
    });
}

TEST(StringUtils, GroupedNumbers) {
    RunCases("grouped numbers", [](const text& t) {
        const int n = std::stoi(String(t));
        const std::unique_ptr<char[]> pNew(pFormatNumber(n, nullptr));
        char* const pOwn = new char[std::strlen(pNew.get()) + (n < 0 ? 0 : 1)];
        const std::unique_ptr<char[]> pFilled(pFormatNumber(n, pOwn));
        EXPECT_TRUE(n < 0 || pFilled.get() == pOwn);
        return Joined(pNew.get(), pFilled.get());
    });
}

TEST(StringUtils, AppendsWords) {
    RunCases("append ab", [](const text& t) {
        const auto parts = PartsOf(t);
        std::string s = parts[2].c_str();
        s.resize(std::stoul(parts[0]) + 2);
        const int bResult = bAppendWords(s.data(), std::stoi(parts[0]), "ab", std::stoi(parts[1]));
        return Joined(bResult, s.c_str());
    });
}

TEST(StringUtils, SplitsAndCountsWords) {
    RunCases("split words", [](const text& t) {
        char separate[64], same[64];
        EXPECT_EQ(bSplitWords(separate, std::strcpy(same, String(t).c_str()), "+-"), 1);
        EXPECT_EQ(bSplitWords(same, same, "+-"), 1);
        return Joined(separate, same);
    });
    EXPECT_EQ(bSplitWords(nullptr, "a", "+"), 1);
    EXPECT_EQ(nCountWords(""), 0);
    EXPECT_EQ(nCountWords("one two3four"), 3);
}

TEST(StringUtils, HostLevels) {
    RunCases("host levels", [](const text& t) { return std::to_string(nNumHostLevels(String(t).c_str())); });
    EXPECT_EQ(pSkipScheme("a://b://c"), "b://c"s);
}

TEST(StringUtils, Edits) {
    RunCases("edits", [](const text& t) {
        const auto parts = PartsOf(t);
        std::string buffer = "ab" + parts[0] + "\0ab"s;
        const auto nLength = static_cast<unsigned>(std::atoi(parts[1].c_str() + parts[1].rfind(' ')));
        const std::map<std::string, std::function<void(char*)>> edits = {
            {"remove last", RemoveLastChar},
            {"set last", [](char* s) { SetLastChar(s, GetLastChar("x")); }},
            {"truncate at", [&](char* s) { TruncateAt(s, nLength); }},
            {"a to b", [](char* s) { ReplaceChar(s, 'a', 'b'); }},
            {"NUL to a", [](char* s) { ReplaceChar(s, '\0', 'a'); }},
            {"a to NUL", [](char* s) { ReplaceChar(s, 'a', '\0'); }}};
        edits.at(parts[1].substr(0, parts[1].find_last_not_of(" 0123456789") + 1))(&buffer[2]);
        EXPECT_EQ(buffer.substr(0, 2) + buffer.substr(buffer.size() - 2), "abab");
        return buffer.substr(2, buffer.size() - 4);
    });
}

} // namespace
