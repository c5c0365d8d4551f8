#pragma once
// Text files are written and read in the Windows-1252 code page; inside the program all text is
// UTF-8. These two convert at the file boundary.

#include <string>
#include <string_view>

namespace qdf {

// Every byte has a character: 0x00-0x7F as ASCII, 0xA0-0xFF as U+00A0-U+00FF, 0x80-0x9F as the
// code page's typographic characters (euro sign, curly quotes, dashes, ...); the five bytes the
// code page leaves unassigned (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the control characters of the
// same number, so any byte string survives AnsiToUtf8 followed by Utf8ToAnsi.
std::string AnsiToUtf8(std::string_view ansi);
// The same conversion without a copy for plain ASCII text, which reads the same in both: the
// text itself comes back; otherwise `buffer` takes the UTF-8 form and a view of it comes back.
std::string_view AnsiAsUtf8(std::string_view ansi, std::string& buffer);

// A character the code page cannot hold becomes "?", as does each byte of a malformed UTF-8
// sequence (overlong forms, surrogates, code points above U+10FFFF, cut-off sequences).
std::string Utf8ToAnsi(std::string_view utf8);

}  // namespace qdf
