#include "platform/foundation/log.h"

#include <utility>

namespace specialpages::platform {

namespace {

LogSink& current_sink() {
    static LogSink sink;
    return sink;
}

} // namespace

void NSLog(std::string_view line) {
    // A copy, since the sink may put another in its own place while it runs.
    const LogSink sink = current_sink();
    if (sink) {
        sink(line.substr(0, line.find_last_not_of("\r\n") + 1));
    }
}

LogSink setLogSink(LogSink sink) {
    return std::exchange(current_sink(), std::move(sink));
}

} // namespace specialpages::platform
