#pragma once

#include <cstdint>
#include <string>

namespace scriv {

// The counters of one generation run.
class CScrivStats {
public:
    void Reset() { *this = CScrivStats(); }

    std::int32_t HelpPagesCount { 0 };
    std::int32_t ControlSectionsCount { 0 };
    std::int32_t ScreenshotsCount { 0 };
    std::int32_t FormContextIdsCount { 0 };
    std::int32_t ReportContextIdsCount { 0 };
    std::int32_t HelpProvidersCount { 0 };
    std::int32_t IndexEntriesCount { 0 };
};

}  // namespace scriv
