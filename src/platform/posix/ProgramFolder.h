#pragma once

#include <string>
#include <string_view>

namespace dialwright {

/// Where what is shipped with a program file lies, in the host's paths: beside it, or, installed,
/// in the system's folder for such data.
std::string ShippedFolder(std::string_view executableFolder);

/// The program folder that the system sees while it works on the server in a folder of the host:
/// templates and libraries are read there, documents and the backup left. It is a folder of its own
/// within the server's, with what is shipped laid into it as links; a file that somebody has put in
/// the place of a link stays. Where nothing can be laid there it is the shipped folder itself, and
/// where the server lies beside a program of its own, that program's. A path of the host.
std::string ProgramFolderFor(const std::string& serverFolder, const std::string& shippedFolder);

/// The same without laying anything: where the program folder stands, or would.
std::string PlannedProgramFolder(const std::string& serverFolder);

}  // namespace dialwright
