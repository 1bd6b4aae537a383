// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_OUTPUT_OUTPUT_TEXT_H
#define PAGESLICE_OUTPUT_OUTPUT_TEXT_H

inline namespace pageslice_v1 {

// The sink that slices are printed into: a buffer of the caller's, or the console.
//
//      m_pBufStart      m_pCurrent             m_pBufEnd
//        |                |                       |
//        v                v                       v
//      [ H ][ e ][ l ][NUL][NUL][NUL][NUL][NUL][NUL]
//
// A buffer is filled from the front. Its last byte is never written by the character operations and keeps
// the NUL, so the content reads as a NUL-terminated string at any time; GetSize() - 1 characters fit.
// Without a buffer every character goes to the console at once, through printf.
//
// The sink owns nothing: the buffer must stay valid while the sink is used. Nothing is written outside the
// buffer, whatever the caller did to it. Results are 1 for success and 0 for a full buffer.
class OutputText {
public:
    // The console.
    OutputText() noexcept;
    // Both ends inclusive; see SetBuffer.
    OutputText(char* pStart, char* pEnd) noexcept;

    // Starts with an empty, zero-filled buffer; null for both ends means the console.
    void SetBuffer(char* pStart, char* pEnd) noexcept;
    // The same for a buffer that is going to be zero-filled by what writes it: see WritePlainText.
    void SetBufferUnfilled(char* pStart, char* pEnd) noexcept;
    // Sets every byte of the buffer; the cursor does not move.
    void Fill(char c) noexcept;

    // Any byte is accepted, NUL included. A full buffer drops it.
    int bPutChar(char c) noexcept;
    // A full buffer gives up its last character for the line end, so that a cut line still ends with one;
    // 0 only for a buffer with room for nothing but its NUL.
    int bPutLineEnd(char c) noexcept;
    // Puts every character, also after one was dropped; gives the last result, 1 for an empty string.
    int bPutString(const char* s) noexcept;
    // `count` times a space and the word; the result of the last repetition, 1 for none.
    int bPutWords(const char* word, int count) noexcept;
    // Adds words until the content has n of them, then one space.
    int bPadToWords(int n) noexcept;

    int bIsConsole() const noexcept;
    int GetSize() const noexcept;
    // Characters in the buffer; 0 for the console.
    int GetLength() const noexcept;
    char* GetBuffer() const noexcept;
    // Runs of ASCII letters before the first NUL; 0 for the console.
    int nNumWords() const noexcept;

    // The last byte of the buffer that is not NUL, or null.
    char* pFindLast() const noexcept;
    // Puts the cursor after the last byte that is not NUL.
    void SyncCursor() noexcept;
    // Removes the last byte that is not NUL; 0 when there is none.
    int bDropLast() noexcept;
    // Takes ']', CR and LF off the end of the content and '[' off its start. Always 1; one pass over the
    // buffer. What is on the console stays there.
    int bTrimBrackets() noexcept;

    char* m_pBufStart;
    char* m_pBufEnd; // inclusive
    char* m_pCurrent;

private:
    bool bIsFull() const noexcept;
    char* pFindLastAtOrBefore(char* p) const noexcept;
};

} // namespace pageslice_v1

#endif
