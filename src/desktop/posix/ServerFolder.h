#pragma once

#include <QString>
#include <QStringList>

namespace dialwright {

/// What keeps a folder from being a server's, in words for the user; empty if it is one.
QString ServerFolderFault(const QString& folder);

/// The server folders that were opened last, the latest first; those alone that are still there.
QStringList LastServers();
void RememberServer(const QString& folder);

/// The user's own copy of the sample server, made when it is asked for first. A text that says why
/// there is none goes to `fault`.
QString SampleServer(const QString& shippedFolder, QString& fault);

}  // namespace dialwright
