#pragma once

#include <string>

// Finds the resource bundle "QZCsvConvXml.bundle": the folder named by the
// environment variable QZCSVCONVXML_BUNDLE, else the bundle beside the loaded
// library file, else the installed bundle (share/QZCsvConvXml/ under the
// installation prefix) found from the library's folder.
class QZCLoadResource {
public:
    static constexpr const char* kBundleVariable = "QZCSVCONVXML_BUNDLE";

    std::string getBundlePath() const;
    std::string getPathName(const char* name) const;
};
