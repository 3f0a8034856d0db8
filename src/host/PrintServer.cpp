#include "host/PrintServer.h"

#include <cups/cups.h>

#include <array>

namespace specialpages::host {

namespace {

constexpr double kTickSeconds = 0.25; // how soon an interruption is noticed
constexpr int kConnectMilliseconds = 30000;

/// libcups would ask on the terminal, where nobody may be.
const char* no_password(const char* /*prompt*/, http_t* /*http*/, const char* /*method*/,
                        const char* /*resource*/, void* /*data*/) {
    return nullptr;
}

std::string server_name() {
    const std::string name = cupsServer();
    return name.starts_with('/') ? name : name + ":" + std::to_string(ippPort());
}

/// Whether the last answer was no answer: the connection broke or nobody was there.
bool is_connection_lost(ipp_status_t status, http_t* http) {
    return status == IPP_STATUS_ERROR_SERVICE_UNAVAILABLE || status == IPP_STATUS_ERROR_TIMEOUT ||
           httpError(http) != 0;
}

/// What a status means to a person; null when libcups' own words have to do.
const char* words(ipp_status_t status) {
    switch (status) {
    case IPP_STATUS_ERROR_NOT_FOUND:
        return "the print server has no such queue";
    case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
        return "the queue takes no jobs";
    case IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED:
    case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
    case IPP_STATUS_ERROR_CUPS_ACCOUNT_INFO_NEEDED:
        return "the print server asks for a password, which is not supported here";
    case IPP_STATUS_ERROR_FORBIDDEN:
    case IPP_STATUS_ERROR_NOT_AUTHORIZED:
        return "the print server does not allow you to print here";
    case IPP_STATUS_ERROR_DOCUMENT_FORMAT_NOT_SUPPORTED:
        return "the queue takes no documents of this kind";
    case IPP_STATUS_ERROR_REQUEST_ENTITY:
        return "the print server has no room for the document";
    case IPP_STATUS_ERROR_NOT_POSSIBLE:
        return "the print server does not do that now";
    default:
        return nullptr;
    }
}

} // namespace

void PrintServer::Close::operator()(http_t* http) const {
    httpClose(http);
}

PrintServer::PrintServer(Interrupted interrupted) : interrupted_(std::move(interrupted)) {
    begin();
    if (this->interrupted()) {
        throw PrintInterrupted();
    }
    http_.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                             kConnectMilliseconds, nullptr));
    if (!http_) {
        cupsSetPasswordCB2(nullptr, nullptr);
        throw HostError(ErrorCode::printer, server_name(), "no print server answers here");
    }
    httpSetTimeout(http_.get(), kTickSeconds, onTimeout, this);
}

PrintServer::~PrintServer() {
    cupsSetPasswordCB2(nullptr, nullptr);
}

void PrintServer::begin() {
    cupsSetPasswordCB2(no_password, nullptr); // each time: another connection of the thread may have ended
    deadline_ = std::chrono::steady_clock::now() + kPatience;
}

int PrintServer::onTimeout(http_t* /*http*/, void* self) {
    const auto& server = *static_cast<PrintServer*>(self);
    return !server.interrupted() && std::chrono::steady_clock::now() < server.deadline_ ? 1 : 0;
}

HostError PrintServer::refusal(const std::string& place, const std::string& doing) const {
    const ipp_status_t status = cupsLastError();
    const char* const said = cupsLastErrorString();
    if (interrupted()) {
        throw PrintInterrupted();
    }
    if (is_connection_lost(status, http_.get())) {
        return {ErrorCode::printer, place, "the print server went away " + doing};
    }
    if (const char* const known = words(status)) {
        return {ErrorCode::printer, place, known};
    }
    return {ErrorCode::printer, place,
            "the print server refused " + doing + ": " + (said == nullptr ? ippErrorString(status) : said) +
                " (" + ippErrorString(status) + ")"};
}

} // namespace specialpages::host
