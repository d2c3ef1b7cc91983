#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

class DomDocument;

/// Gives the document's text in pieces, in order. The receiver says whether to go on.
/// False when it did not.
bool WriteDocument(const DomDocument& document,
                   const std::function<bool(std::string_view piece)>& receiver);
