#pragma once

#include <string>

namespace opd::testserver {

/// The text with what bears the prefix under the names that the engine knows; as it is without a prefix.
std::string withoutPrefix(const std::string& prefix, const std::string& text);

/// A batch as a server that stands in for a real one runs it: nothing, where it defines databases or what is in them,
/// or fills them; otherwise the batch without the prefix. As it is without a prefix.
std::string standingIn(const std::string& prefix, const std::string& batch);

} // namespace opd::testserver
