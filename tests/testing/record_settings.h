// Settings of a job as the pane leaves them, made from the texts of its records, for tests and measurements.
#pragma once

#include "platform/print/PrintSettings.h"
#include "records/ticket_keys.h"

#include <cstddef>
#include <string>
#include <vector>

namespace specialpages::test {

/// The records' own tickets and their count, in that order; nothing else.
inline platform::PrintSettings record_settings(const std::vector<std::string>& records) {
    platform::PrintSettings settings;
    settings.setValue(kNPIFCommandTicketCount, std::to_string(records.size()), false);
    for (std::size_t i = 0; i < records.size(); ++i) {
        settings.setValue(std::string(kNPIFCommandTicket) + "_" + std::to_string(i), records[i], false);
    }
    return settings;
}

inline std::string plain_insert(int page, int sheets) {
    return "1," + std::to_string(page) + ",0," + std::to_string(sheets) + ",2,0,0,false,210.0,297.0,1";
}

inline std::string plain_exception(int page) {
    return "2," + std::to_string(page) + ",2,0,0,false,2,210.0,297.0,1";
}

/// A list in the order in which the pane keeps it: at each page an exception and then an insert.
inline std::vector<std::string> records_by_turns(int count) {
    std::vector<std::string> records;
    for (int i = 0; i < count; ++i) {
        records.push_back(i % 2 == 0 ? plain_exception(1 + i / 2) : plain_insert(1 + i / 2, 1));
    }
    return records;
}

/// A list in the order in which the pane keeps it: of four records the first and the last are exceptions,
/// between them two blue inserts after the same page, which may change places.
inline std::vector<std::string> records_to_move(int count) {
    std::vector<std::string> records;
    for (int i = 0; i < count; ++i) {
        const int place = i % 4;
        const int page = 2 * (i / 4) + 1;
        records.push_back(place == 0   ? plain_exception(page)
                          : place == 3 ? plain_exception(page + 1)
                                       : "1," + std::to_string(page) + ",0," + std::to_string(place) +
                                             ",2,1,0,false,210.0,297.0,1");
    }
    return records;
}

} // namespace specialpages::test
