#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

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
