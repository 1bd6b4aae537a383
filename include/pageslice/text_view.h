// SPDX-License-Identifier: MIT
// Between slices and string views, for hosts that use both the classes and page.h: a slice is one of the
// exported classes, which only the compiler that built the library can link.
#ifndef PAGESLICE_TEXT_VIEW_H
#define PAGESLICE_TEXT_VIEW_H

#include <cstddef>
#include <string_view>
#include <type_traits>

#include "pageslice/text.h"

namespace pageslice {

// A view made of a slice lives as long as the slice's characters, and the other way round. A slice that is
// empty or without characters gives an empty view; its data() is null exactly when the slice is empty.
[[nodiscard]] inline std::string_view to_view(const ::text& slice) noexcept {
    const bool has_characters = slice.m_pStart != nullptr && slice.m_pStart <= slice.m_pEnd;
    return {slice.m_pStart, has_characters ? static_cast<std::size_t>(slice.m_pEnd - slice.m_pStart) + 1 : 0};
}

// No characters gives an empty slice. Not for temporaries that own their characters, as std::string does.
[[nodiscard]] inline ::text to_text(std::string_view characters) noexcept {
    return characters.empty() ? ::text()
                              : ::text(characters.data(), characters.data() + (characters.size() - 1), 0);
}
template <class Owner, class = std::enable_if_t<!std::is_lvalue_reference_v<Owner> &&
                                                std::is_convertible_v<Owner, std::string_view> &&
                                                !std::is_trivially_destructible_v<Owner>>>
::text to_text(Owner&&) = delete;

} // namespace pageslice

#endif
