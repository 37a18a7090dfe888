#pragma once

#include "platform/file_store.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

struct MailAttachment {
    std::string name; ///< Of the file, without folders.
    std::string bytes;
    std::string type = "application/octet-stream"; ///< The media type.
};

struct MailMessage {
    std::vector<std::string> to; ///< Addresses.
    std::string subject, text;   ///< UTF-8; line ends LF.
    std::vector<MailAttachment> attachments{};
};

/// A server that takes mail.
struct MailServer {
    std::string host;
    std::uint16_t port = 587;
    std::string sender;             ///< The address that the mail comes from.
    std::string user{}, password{}; ///< Empty: the server asks for none.
};

class Mail {
public:
    virtual ~Mail() = default;

    /// Opens the message in the user's mail program, who may change it, send it or drop it.
    virtual FileResult Compose(const MailMessage& message) = 0;

    /// Sends the message at once.
    virtual FileResult Send(const MailMessage& message, const MailServer& server) = 0;
};

} // namespace corvane
