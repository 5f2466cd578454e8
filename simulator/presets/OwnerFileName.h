// The name under which an owner's files lie, without an extension. For the preset store; any thread.
#pragma once

#include <string>
#include <string_view>

namespace hx::simulator {

// Two owners never share a name, also where the disk does not tell letter cases apart: small letters, digits
// and "-" stand for themselves, a capital letter is the small one behind a "+", any other character is "_"
// HEX
// "_". What gets too long for a file name is cut and ends in "~" and a checksum of the whole; the file itself
// then tells whose it is. No "." is in it.
std::string OwnerFileName(std::wstring_view owner);

}  // namespace hx::simulator
