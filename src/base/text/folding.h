#pragma once

#include <string>
#include <string_view>

namespace opd::text {

/// How a text is compared when somebody looks for it: in upper case, letters without their accents (Ñ is N, É is E, Ü
/// is U), and one kind of apostrophe (') for all of them, the grave accent included.
std::string folded(std::string_view utf8);

/// The same behind what stands in a text already.
void appendFolded(std::string& text, std::string_view utf8);

/// True when the text, folded, holds or begins with what is folded already. Quick for plain letters.
bool holdsFolded(std::string_view utf8, std::string_view wanted);
bool beginsFolded(std::string_view utf8, std::string_view wanted);

/// How a name is looked for, however it is written: folded, without blanks, hyphens, full stops and apostrophes.
/// "O'Brien", "O`BRIEN" and "O BRIEN" are all "OBRIEN".
std::string searchedName(std::string_view utf8);

} // namespace opd::text
