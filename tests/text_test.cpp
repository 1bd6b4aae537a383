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

// The parts that '|' separates.
std::vector<std::string> Parts(const text& t) {
    std::istringstream in(String(t) + "|");
    std::vector<std::string> parts;
    for (std::string part; std::getline(in, part, '|');)
        parts.push_back(part);
    return parts;
}

TEST(Text, Answers) {
    RunCases("slices", [](const text& t) {
        std::string copied = String(t).c_str(); // a NUL ends the copy, zeros follow
        copied.resize(static_cast<std::size_t>(t.GetLength()) + 1, '\0');
        const std::unique_ptr<char[]> pCopy(t.pMakeCopy());
        EXPECT_EQ(std::string(pCopy.get(), copied.size()), copied);
        const int answers[] = {t.nNumWords(), t.IsAlphabetic(), t.ConvertToAlign()};
        return testing::PrintToString(answers);
    });
    RunCases("numbers", [](const text& t) {
        const std::string s = String(t); // reading goes on behind the slice
        return std::to_string(text(s.c_str(), s.c_str(), 1).ConvertToInt());
    });
    RunCases("comparisons", [](const text& t) {
        const text a(t.m_pStart, std::find(t.m_pStart, t.m_pEnd, '|') - 1, 0), b(a.m_pEnd + 2, t.m_pEnd, 0);
        const int n = Sign(a.strncmp(b));
        EXPECT_TRUE(Sign(b.strncmp(a)) == -n && (a == b) == (n == 0) && (a < b) == (n < 0));
        EXPECT_EQ(b == 'a', String(b) == "a");
        return std::to_string(n);
    });
    EXPECT_TRUE(text("ab").strncmp("abcd") == 1 && text("abcd").strncmp("ab") == -1);
}

TEST(Text, EmptyIsNotZeroLength) {
    const char s[] = "abc";
    text t, copy(s);
    EXPECT_TRUE(t.IsEmpty() == 1 && t.GetLength() == 1 && t.pMakeCopy() == nullptr && t.ConvertToInt() == 0);
    EXPECT_TRUE(t.nNumWords() == 0 && t.IsAlphabetic() == 1 && t.ConvertToAlign() == 0);
    EXPECT_TRUE((t == 'a') == 0 && (t == "a") == 0 && text("").IsEmpty() == 0 && text("").GetLength() == 0);
    t = copy;
    EXPECT_TRUE(t.m_pStart == s && t.m_pEnd == s + 2 && t.bIsNullTerminated() == 1);
    t.Set(s, s + 1, 0);
    EXPECT_TRUE(copy.Surrounds(t) && copy.Surrounds(copy) && !t.Surrounds(copy));
    copy.Set(t);
    EXPECT_TRUE(copy.m_pStart == s && copy.m_pEnd == s + 1 && copy.bIsNullTerminated() == 0);
    copy.Clear();
    EXPECT_TRUE(copy.IsEmpty() && copy.m_pEnd == nullptr);
    copy.Set(s + 2, s, 0); // the wrong way round
    EXPECT_TRUE(copy.IsAlphabetic() == 1 && copy.nNumWords() == 0 && copy.GetLength() == -1);
}

TEST(StringUtils, ClassifyEveryByte) {
    const auto in = [](const char* set, char c) { return c != 0 && std::strchr(set, c) != nullptr; };
    for (int i = 0; i < 256; ++i) {
        const char s[] = {static_cast<char>(i), '\0'}, folded[] = {static_cast<char>(i ^ 0x20), '\0'};
        const bool bLetter = in("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", *s);
        EXPECT_TRUE(bIsWhiteSpace(*s) == in("\t\n\r ", *s) && bIsSeparator(*s) == in("\t\n\r ./", *s)) << i;
        EXPECT_TRUE(text().IsAlphabetic(*s) == bLetter && (nStrNICmp(s, folded, 1) == 0) == bLetter) << i;
    }
}

TEST(StringUtils, Answer) {
    RunCases("bounded comparisons", [](const text& t) {
        const auto parts = Parts(t);
        const char *const a = parts[1].c_str(), *const b = parts[2].c_str();
        const auto n = static_cast<unsigned>(std::stoi(parts[0]));
        return std::to_string(Sign(nStrNCmp(a, b, n))) + ' ' + std::to_string(Sign(nStrNICmp(a, b, n)));
    });
    RunCases("grouped numbers", [](const text& t) {
        const int n = std::stoi(String(t));
        const std::unique_ptr<char[]> pNew(pFormatNumber(n, nullptr));
        char* const pOwn = new char[std::strlen(pNew.get()) + (n < 0 ? 0 : 1)];
        const std::unique_ptr<char[]> pFilled(pFormatNumber(n, pOwn));
        EXPECT_TRUE(n < 0 || pFilled.get() == pOwn);
        return pNew.get() + "/"s + pFilled.get();
    });
    RunCases("append ab", [](const text& t) {
        const auto parts = Parts(t);
        std::string s = parts[2].c_str();
        s.resize(std::stoul(parts[0]) + 2);
        const int bResult = bAppendWords(s.data(), std::stoi(parts[0]), "ab", std::stoi(parts[1]));
        return std::to_string(bResult) + ' ' + s.c_str();
    });
    RunCases("split words", [](const text& t) {
        char separate[64], same[64];
        EXPECT_EQ(bSplitWords(separate, std::strcpy(same, String(t).c_str()), "+-"), 1);
        EXPECT_EQ(bSplitWords(same, same, "+-"), 1);
        return separate + "/"s + same;
    });
    RunCases("host levels", [](const text& t) { return std::to_string(nNumHostLevels(String(t).c_str())); });
    EXPECT_TRUE(bSplitWords(nullptr, "a", "+") == 1 && pSkipScheme("a://b://c") == "b://c"s);
    EXPECT_TRUE(nCountWords("") == 0 && nCountWords("one two3four") == 3);
    RunCases("edits", [](const text& t) {
        const auto parts = Parts(t);
        std::string buffer = "ab" + parts[0] + "\0ab"s;
        const std::map<char, std::function<void(char*)>> edits = {
            {'R', RemoveLastChar},
            {'X', [](char* s) { SetLastChar(s, GetLastChar("x")); }},
            {'T', [&](char* s) { TruncateAt(s, static_cast<unsigned>(std::stoul(parts[1].substr(1)))); }},
            {'A', [](char* s) { ReplaceChar(s, 'a', 'b'); }},
            {'N', [](char* s) { ReplaceChar(s, '\0', 'a'); }},
            {'Z', [](char* s) { ReplaceChar(s, 'a', '\0'); }}};
        edits.at(parts[1][0])(&buffer[2]);
        EXPECT_TRUE(buffer.starts_with("ab") && buffer.ends_with("ab"));
        return buffer.substr(2, buffer.size() - 4);
    });
}

} // namespace
