#pragma once

#include <QUrl>
#include <string>

#include "platform/qt/local_text.h"

namespace platform {

/// A host's name in the form for name servers: "www.bücher.test" becomes "www.xn--bcher-kva.test".
/// "" if it cannot be a host's name.
inline std::string AsciiHost(const std::string& host) {
    return QUrl::toAce(FromBytes(host)).toStdString();
}

}  // namespace platform
