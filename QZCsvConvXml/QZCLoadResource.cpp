#include "QZCLoadResource.h"

#include <cstdlib>

#include <dlfcn.h>

#include "QZCMacOSNative.h"

namespace {

constexpr const char* kBundleName = "QZCsvConvXml.bundle";

// Folder of the loaded library file that holds this function.
std::string libraryFolder()
{
    Dl_info info{};
    if (::dladdr(reinterpret_cast<void*>(&libraryFolder), &info) == 0 || !info.dli_fname)
        return "";
    std::string path = info.dli_fname;
    size_t separator = path.find_last_of('/');
    return separator == std::string::npos ? std::string(".") : path.substr(0, separator);
}

}  // namespace

std::string QZCLoadResource::getBundlePath() const
{
    if (const char* configured = std::getenv(kBundleVariable); configured && *configured)
        return QZCMacOSNative::pathDirectoryExists(configured, false) ? std::string(configured) : std::string();
    std::string folder = libraryFolder();
    if (folder.empty())
        return "";
    for (const char* relative : {kBundleName, QZC_BUNDLE_FROM_LIBRARY}) {
        std::string candidate = QZCMacOSNative::appendFilePath(folder.c_str(), relative);
        if (QZCMacOSNative::pathDirectoryExists(candidate.c_str(), false))
            return candidate;
    }
    return "";
}

std::string QZCLoadResource::getPathName(const char* name) const
{
    std::string bundle = getBundlePath();
    if (bundle.empty() || !name)
        return "";
    std::string resource = QZCMacOSNative::appendFilePath(
        bundle.c_str(), QZCMacOSNative::getLastPathComponent(name, true).c_str());
    return QZCMacOSNative::pathFileExists(resource.c_str()) ? resource : std::string();
}
