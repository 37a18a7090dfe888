#pragma once

#include "report/report.h"

#include <nlohmann/json.hpp>

namespace corvane {

using Json = nlohmann::ordered_json;

/// Adds a report's sections to an object, by their ids. Every number is the double that the section computed,
/// whatever the text shows of it. A name or id that occurs twice is a programming error: std::logic_error.
void AddSections(Json& sections, const Report& report);

/// The document as text in UTF-8 with a line end after it. Bytes that are no UTF-8 become U+FFFD.
std::string JsonText(const Json& json);

} // namespace corvane
