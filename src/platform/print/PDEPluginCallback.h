// What a print dialog's extension asks of its host: four borrowed objects, asked for anew whenever they are
// needed.
#pragma once

#include "platform/export.h"

struct ppd_file_s;

namespace specialpages::platform {

class PrintSettings;
struct PrintSession;
struct PageFormat;

/// Implemented by the host, which owns all that it hands out. Each answer may be null.
class SPECIALPAGES_PLATFORM_API PDEPluginCallback {
  public:
    PDEPluginCallback() = default;
    PDEPluginCallback(const PDEPluginCallback&) = delete;
    PDEPluginCallback& operator=(const PDEPluginCallback&) = delete;
    virtual ~PDEPluginCallback();

    /// The printer's open PPD (libcups), with the job's choices marked.
    virtual ppd_file_s* ppdFile() = 0;
    virtual PrintSettings* printSettings() = 0;
    virtual PrintSession* printSession() = 0;
    virtual PageFormat* pageFormat() = 0;
};

} // namespace specialpages::platform
