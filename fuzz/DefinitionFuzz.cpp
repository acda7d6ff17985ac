// Validation and check definition files: parsed from memory, walked with the
// cursor, and every "item" element handed to the validator builders of the
// detail forms and of the financial statements.
#include "FuzzSupport.h"
#include "QZCAccountBookValidator.h"
#include "QZCDOMParser.h"
#include "QZCDatValidator.h"

namespace {

// Attributes the definitions of both kinds use.
const char* const kAttributes[] = {"id", "column", "type", "value", "min", "max", "lineType", "errorMsg",
                                   "reportId", "reportVR", "parent", "meisaiGoukei", "continue", "count"};

void BuildValidators(QZCDOMParser& dom)
{
    const std::string name = dom.GetNodeName();
    try {
        QZCDatValidator detail;
        detail.Initialize(std::atol(dom.GetAttribute("column").c_str()), &dom);
    } catch (int) {
    }
    // Each builder must leave the cursor on the element it was given.
    if (dom.GetNodeName() != name)
        std::abort();
    QZCAccountBookValidator statements;
    statements.MakeValidItems(dom, dom.GetAttribute("id"));
    if (dom.GetNodeName() != name)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QZCDOMParser* dom = [] {
        auto* parser = new QZCDOMParser;
        if (!parser->Initialize())
            std::abort();
        return parser;
    }();
    const std::string text = Bytes(data, size);
    ResetErrors();
    if (!dom->Parse(text.c_str(), "definition", "UTF-8"))
        return 0;

    // Depth first without recursion, so a deep document costs no stack.
    int depth = 0;
    do {
        for (const char* attribute : kAttributes)
            dom->GetAttribute(attribute);
        dom->GetNodeValue("content");
        if (dom->GetNodeName() == "item")
            BuildValidators(*dom);
        if (dom->MoveFirstChild() == 0) {
            ++depth;
            continue;
        }
        while (depth > 0 && dom->MoveNextSibling() != 0) {
            dom->MoveParent();
            --depth;
        }
        if (depth == 0)
            break;
    } while (true);
    return 0;
}
