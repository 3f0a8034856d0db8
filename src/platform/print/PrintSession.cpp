#include "platform/print/PrintSession.h"

namespace specialpages::platform {

OSStatus PMSessionGetCurrentPrinter(const PrintSession* session, const Printer*& printer) {
    printer = nullptr;
    if (session == nullptr) {
        return paramErr;
    }
    if (!session->currentPrinter) {
        return kPMNoSessionData;
    }
    printer = &*session->currentPrinter;
    return noErr;
}

std::string PMPrinterGetID(const Printer& printer) {
    return printer.identifier;
}

OSStatus PMSessionGetDataFromSession(const PrintSession* session, std::string_view key,
                                     const SessionData*& data) {
    data = nullptr;
    if (session == nullptr) {
        return paramErr;
    }
    const auto found = session->data.find(key);
    if (found == session->data.end()) {
        return kPMNoSessionData;
    }
    data = &found->second;
    return noErr;
}

} // namespace specialpages::platform
