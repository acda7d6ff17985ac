#pragma once

#include <filesystem>
#include <string>

#include "TestSupport.h"

// Validation definitions small enough to read at a glance: a deposits form
// for the first (2.0) and the second (4.0) detail operation, an appended
// table HOB016 6.0; none for HOI010 3.0. Value checks report "HQZ9620E",
// which does not block.
inline std::string DetailDefinition(const char* reportId, const char* version, bool appended = false)
{
    const std::string head = std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n  <report id=\"") +
                             reportId + "\" reportId=\"" + reportId + "\" reportVR=\"" + version + "\" ";
    if (appended) {
        return head + "columnNum=\"3\">\n"
                      "    <item id=\"name\" column=\"2\"><valid id=\"exist\" message=\"HQZ9620E\"/></item>\n"
                      "    <item id=\"amount\" column=\"3\"><valid id=\"number\" message=\"HQZ9620E\"/></item>\n"
                      "  </report>\n</root>\n";
    }
    return head + "columnNum=\"5\" maxOccurs=\"1000000000\" bracketed=\"1\">\n"
                  "    <item id=\"bank\" column=\"3\" meisaiGoukei=\"0\"><valid id=\"exist\" message=\"HQZ9620E\"/></item>\n"
                  "    <item id=\"amount\" column=\"4\" meisaiGoukei=\"0\"><valid id=\"number\" message=\"HQZ9620E\"/></item>\n"
                  "    <item id=\"remark\" column=\"5\" meisaiGoukei=\"0\">"
                  "<valid id=\"charlength\" max=\"10\" message=\"HQZ9620E\"/></item>\n"
                  "    <item id=\"total\" column=\"4\" meisaiGoukei=\"1\"><valid id=\"number\" message=\"HQZ9620E\"/></item>\n"
                  "  </report>\n</root>\n";
}

// A copy of the shipped bundle holding those definitions, in use for the
// life of the object, and a folder for CSV files.
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
        writeBytes(bundle + "/AccountTitle/HOI010_2.0_vld.xml", DetailDefinition("HOI010", "2.0"));
        writeBytes(bundle + "/AccountTitle/HOI010_4.0_vld.xml", DetailDefinition("HOI010", "4.0"));
        writeBytes(bundle + "/AppendedTable/HOB016_6.0_vld.xml", DetailDefinition("HOB016", "6.0", true));
        // A version of the version table without a definition.
        std::filesystem::remove(bundle + "/AccountTitle/HOI010_3.0_vld.xml");
        return bundle;
    }

    TempDir m_bundleDir;
    ScopedBundle m_scope;
    TempDir m_csvDir;
};
