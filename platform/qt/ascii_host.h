#pragma once

#include <QUrl>
#include <string>

#include "platform/qt/local_text.h"

namespace platform {

/// The name of a host in the letters that name servers know: "www.bücher.test" is
/// "www.xn--bcher-kva.test". "" for what cannot be the name of a host.
inline std::string AsciiHost(const std::string& host) {
    return QUrl::toAce(FromBytes(host)).toStdString();
}

}  // namespace platform
