#pragma once

#include <cstring>
#include <filesystem>
#include <string>

#include "TestSupport.h"

// A copy of the shipped bundle, in use for the life of the object, holding
// the definitions of tests/data/detail-bundle, small enough to read at a
// glance: a deposits form for the first (2.0) and the second (4.0) detail
// operation, an appended table HOB016 6.0; none for HOI010 3.0. Value checks
// report "HQZ9620E", which does not block. And a folder for CSV files.
class DetailTestBundle {
public:
    DetailTestBundle() : m_scope(Prepare(m_bundleDir)) {}

    // Writes UTF-8 text as a Shift_JIS CSV file of that name; returns its path.
    std::string Csv(const std::string& name, const std::string& text) const
    {
        writeShiftJis(m_csvDir.file(name), text);
        return m_csvDir.file(name);
    }
    std::string Path(const std::string& name) const { return m_csvDir.file(name); }

private:
    static std::string Prepare(const TempDir& dir)
    {
        const std::string bundle = dir.file("QZCsvConvXml.bundle");
        std::filesystem::copy(QZC_BUNDLE_DIR, bundle, std::filesystem::copy_options::recursive);
        for (const char* name : {"AccountTitle/HOI010_2.0_vld.xml", "AccountTitle/HOI010_4.0_vld.xml",
                                 "AppendedTable/HOB016_6.0_vld.xml"})
            writeBytes(bundle + "/" + name, testData("detail-bundle" + std::string(std::strrchr(name, '/'))));
        // A version of the version table without a definition.
        std::filesystem::remove(bundle + "/AccountTitle/HOI010_3.0_vld.xml");
        return bundle;
    }

    TempDir m_bundleDir;
    ScopedBundle m_scope;
    TempDir m_csvDir;
};
