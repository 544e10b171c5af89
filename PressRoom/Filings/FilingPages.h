#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "PressRoom/Filings/FilingsWorld.h"

/// One filing as the SEC archives it.
namespace pressroom {

/// The form of insiders or the notice of a sale as XML; empty for other filings.
std::string formXML(const WorldFiler& filer, const WorldFiling& filing,
                    std::chrono::sys_seconds anchor);

/// The page that lists a filing's documents.
std::string filingIndexPage(const WorldFiler& filer, const WorldFiling& filing,
                            std::chrono::sys_seconds anchor);

/// The folder of a filing: sizes are texts, types are icons.
std::string filingFolder(const WorldFiling& filing);

/// The whole submission as text.
std::string submissionText(const WorldFiler& filer, const WorldFiling& filing,
                           std::chrono::sys_seconds anchor);

/// One of its documents. Nothing when it has no such file.
std::optional<std::string> filingDocument(const WorldFiler& filer, const WorldFiling& filing,
                                          std::string_view file, std::chrono::sys_seconds anchor);

}  // namespace pressroom
