#pragma once

#include <string>

#include <xercesc/util/XercesDefs.hpp>

#include "QZCXParser.h"

XERCES_CPP_NAMESPACE_BEGIN
class DOMDocument;
class DOMNode;
class XercesDOMParser;
XERCES_CPP_NAMESPACE_END

// A parsed XML document with a cursor that stands on one element at a time.
// Cursor operations return 0 on success and -1 on failure (the cursor stays).
class QZCDOMParser : public QZCXParser {
public:
    QZCDOMParser() = default;
    ~QZCDOMParser() override;
    QZCDOMParser(const QZCDOMParser&) = delete;
    QZCDOMParser& operator=(const QZCDOMParser&) = delete;

    bool Initialize() override;
    void Terminate() override;
    bool Parse(const char* text, const char* bufferId, const char* encoding) override;
    bool Parse(const char* path);

    int MoveRoot();
    int MoveParent();
    int MoveFirstChild();
    int MoveLastChild();
    int MoveNextSibling();
    int MovePrevSibling();
    bool HasChild() const;

    std::string GetNodeName() const;
    std::string GetNodeValue(const char* elementName) const;
    std::string GetAttribute(const char* attributeName) const;

    int Save(const char* path);
    int SaveXml(std::string& xml);

private:
    // Makes a freshly parsed document current, cursor on its root.
    bool adopt(XERCES_CPP_NAMESPACE::DOMDocument* document);
    // Makes node current; -1 and the cursor unmoved when there is none.
    int MoveTo(XERCES_CPP_NAMESPACE::DOMNode* node);

    XERCES_CPP_NAMESPACE::DOMDocument* m_pDocument = nullptr;
    XERCES_CPP_NAMESPACE::XercesDOMParser* m_pParser = nullptr;
    XERCES_CPP_NAMESPACE::DOMNode* m_pCurrentNode = nullptr;
};
