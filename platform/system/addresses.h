#pragma once
// What of a document's links may reach the desktop. A base is written by others: a link in it starts nothing but the
// browser on an address of the web, or a new message to one address.
#include <QString>
#include <QUrl>

#include <optional>

namespace velm {

/// An address of the web, http or https, ready to be handed on; nothing for anything else. A scheme that was written
/// twice, as when "http://" is put before what has one already, counts once: "http://https://x" is https://x, while
/// "http://ssh:x" is no address. Without a scheme it is refused.
std::optional<QUrl> webUrl(const QString& address);

/// A message to one address, nothing but the address in it: what follows a question mark (subject, attachments) is left
/// away. With or without "mailto:". Nothing when it is no plain address.
std::optional<QUrl> mailUrl(const QString& address);

/// An address for the eyes: in lines of at most 80 characters, its middle left out where it is long; characters that do
/// not show, or turn the direction of writing, as their numbers: "U+202E".
QString shownAddress(const QString& address);

} // namespace velm
