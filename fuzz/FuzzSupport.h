#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <stdlib.h>
#include <unistd.h>

#include "QZCLoadResource.h"
#include "QZCUtility.h"

// A folder of this fuzzing process, removed when the process exits normally.
inline const std::filesystem::path& ScratchDir()
{
    struct Dir {
        std::filesystem::path path;
        Dir()
        {
            path = std::filesystem::temp_directory_path() / ("qzc-fuzz-" + std::to_string(getpid()));
            std::filesystem::create_directories(path);
        }
        ~Dir()
        {
            std::error_code ignored;
            std::filesystem::remove_all(path, ignored);
        }
    };
    static const Dir dir;
    return dir.path;
}

inline void WriteFile(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string Bytes(const uint8_t* data, size_t size)
{
    return std::string(reinterpret_cast<const char*>(data), size);
}

// Every operation starts from an empty error list and record count.
inline void ResetErrors()
{
    QZCUtility::ClearErrorInfo();
    g_nRecordCount = 0;
}

// A copy of the shipped bundle in the scratch folder, made once and used by
// every operation of the process, so that an input can replace one of its
// files.
inline const std::string& ScratchBundle()
{
    static const std::string bundle = [] {
        const std::filesystem::path path = ScratchDir() / "QZCsvConvXml.bundle";
        std::filesystem::copy(QZC_BUNDLE_DIR, path, std::filesystem::copy_options::recursive);
        setenv(QZCLoadResource::kBundleVariable, path.c_str(), 1);
        return path.string();
    }();
    return bundle;
}

// A form of the bundle: report id, style version, and whether it is an
// appended table (checked by its own operation) or a detail statement.
struct FuzzForm {
    std::string reportId;
    std::string version;
    bool appended;
};

// The form that the input's first byte picks, in the order of report id and
// version; the rest of the input is the CSV file.
inline const FuzzForm& FormFor(const std::string& input)
{
    static const std::vector<FuzzForm> forms = [] {
        std::vector<FuzzForm> found;
        for (const char* folder : {"AccountTitle", "AppendedTable"}) {
            for (const auto& entry : std::filesystem::directory_iterator(std::string(QZC_BUNDLE_DIR) + "/" + folder)) {
                const std::string name = entry.path().filename().string();  // HOI010_4.0_vld.xml
                const size_t first = name.find('_');
                const size_t second = name.find('_', first + 1);
                if (first != std::string::npos && second != std::string::npos)
                    found.push_back({name.substr(0, first), name.substr(first + 1, second - first - 1),
                                     std::string(folder) == "AppendedTable"});
            }
        }
        std::sort(found.begin(), found.end(), [](const FuzzForm& a, const FuzzForm& b) {
            return a.reportId + "_" + a.version < b.reportId + "_" + b.version;
        });
        return found;
    }();
    return forms[input.empty() ? 0 : static_cast<unsigned char>(input[0]) % forms.size()];
}

// The input less its first byte written as a CSV file of the form that byte
// picks, named as that form's files are, with the bundle set up for the
// operations.
struct FormFile {
    const FuzzForm& form;
    std::string path;
};
inline FormFile WriteFormFile(const uint8_t* data, size_t size)
{
    ScratchBundle();
    const std::string input = Bytes(data, size);
    const FuzzForm& form = FormFor(input);
    std::string path = (ScratchDir() / (form.reportId + "_" + form.version + ".csv")).string();
    WriteFile(path, input.substr(input.empty() ? 0 : 1));
    return {form, path};
}
