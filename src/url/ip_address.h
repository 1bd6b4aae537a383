// SPDX-License-Identifier: MIT
// IP addresses in the forms that the URL Standard reads, and in the one that it writes.
#ifndef PAGESLICE_URL_IP_ADDRESS_H
#define PAGESLICE_URL_IP_ADDRESS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pageslice::url_parts {

inline constexpr std::size_t LONGEST_IP_ADDRESS = 39; // "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff"

// Whether a domain's last label is a number, so that it has to be an IPv4 address.
bool ends_in_number(std::string_view domain) noexcept;

// Up to four numbers, decimal, octal ("017") or hexadecimal ("0xF"); the last one stands for all bytes that
// are left. False for what is none.
bool parse_ipv4(std::string_view in, std::uint32_t& address) noexcept;
char* write_ipv4(std::uint32_t address, char* out) noexcept;

using ipv6_address = std::array<std::uint16_t, 8>;

// Without the brackets.
bool parse_ipv6(std::string_view in, ipv6_address& address) noexcept;
char* write_ipv6(const ipv6_address& address, char* out) noexcept;

} // namespace pageslice::url_parts

#endif
