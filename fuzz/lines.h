// A fuzz input as lines.
#ifndef PAGESLICE_FUZZ_LINES_H
#define PAGESLICE_FUZZ_LINES_H

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

class Lines {
public:
    Lines(const std::uint8_t* pData, std::size_t n) : m_in(std::string(pData, pData + n)) {}
    bool bMore() { return m_in.peek() != EOF; }
    // Empty when there is none.
    std::string Next() {
        std::string line;
        std::getline(m_in, line);
        return line;
    }

private:
    std::istringstream m_in;
};

// The characters before the first NUL, and a NUL, in memory of exactly that size.
class Exact : public std::vector<char> {
public:
    explicit Exact(const std::string& s)
        : std::vector<char>(s.c_str(), s.c_str() + std::string(s.c_str()).size() + 1) {}
};

#endif
