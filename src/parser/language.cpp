// SPDX-License-Identifier: MIT
#include "pageslice/html_parser.h"

inline namespace pageslice_v1 {

int LanguageDetector::bLoadDictionary(const char* /*pName*/) const noexcept {
    return 1;
}

int LanguageDetector::bIsEnglish(const text& /*tPage*/) const noexcept {
    return 1;
}

int LanguageDetector::bLanguageOf(const text& /*tPage*/, int* /*pLanguage*/) const noexcept {
    return 0;
}

int HtmlParser::bLoadLanguageDictionary(const char* pName) {
    return m_language.bLoadDictionary(pName);
}

int HtmlParser::bIsLanguageEnglish() {
    return m_language.bIsEnglish(m_tPage);
}

int HtmlParser::bLanguageOfPage(int* pLanguage) {
    return m_language.bLanguageOf(m_tPage, pLanguage);
}

} // namespace pageslice_v1
