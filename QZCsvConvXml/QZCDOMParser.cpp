#include "QZCDOMParser.h"

#include <cstring>
#include <memory>
#include <new>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/framework/LocalFileInputSource.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "QZCLog.h"
#include "QZCUtility.h"

using namespace XERCES_CPP_NAMESPACE;

namespace {

constexpr const char* kUnexpected = "想定しないエラーが発生しました。";
constexpr const char* kNewFailed = "クラスの生成(new)に失敗しました。";

// UTF-8 to UTF-16 for the parser's interface.
class Utf16 {
public:
    explicit Utf16(const char* text)
        : m_text(reinterpret_cast<const XMLByte*>(text ? text : ""), std::strlen(text ? text : ""), "UTF-8")
    {
    }
    const XMLCh* get() const { return m_text.str(); }

private:
    TranscodeFromStr m_text;
};

std::string toUtf8(const XMLCh* text)
{
    if (!text || !*text)
        return "";
    TranscodeToStr utf8(text, "UTF-8");
    return reinterpret_cast<const char*>(utf8.str());
}

// Definition files never load anything from outside themselves: every
// external entity resolves to empty text, so nothing is fetched.
class NoExternalEntities : public XMLEntityResolver {
public:
    InputSource* resolveEntity(XMLResourceIdentifier*) override
    {
        static const XMLByte empty[] = "";
        return new MemBufInputSource(empty, 0, "", false);
    }
};

NoExternalEntities gNoExternalEntities;

// Bounds entity expansion so a crafted document cannot exhaust memory.
SecurityManager* securityManager()
{
    static SecurityManager manager;
    return &manager;
}

// Initialises the XML platform once for the process and keeps it: its
// Initialize and Terminate count references but must not run on two threads
// at once, and a Terminate would free the tables other threads' parsers use.
// Holding the one reference also keeps it alive when the host program calls
// Terminate for its own uses. A failed start throws and is tried again on
// the next call.
void initializeXmlPlatform()
{
    static const bool initialized = (XMLPlatformUtils::Initialize(), true);
    (void)initialized;
}

void recordFailure(const char* label, const char* message)
{
    QZCUtility::AddOtherExceptionErrorInfo();
    QZC_LOG(label, message);
}

DOMNode* elementFrom(DOMNode* node, bool forward)
{
    while (node && node->getNodeType() != DOMNode::ELEMENT_NODE)
        node = forward ? node->getNextSibling() : node->getPreviousSibling();
    return node;
}

}  // namespace

QZCDOMParser::~QZCDOMParser()
{
    Terminate();
}

bool QZCDOMParser::Initialize()
{
    if (m_pParser)
        return true;
    try {
        initializeXmlPlatform();
        m_pParser = new XercesDOMParser;
        // Validity errors would be ignored anyway; not validating lets the
        // parser skip external DTDs altogether instead of loading them.
        m_pParser->setValidationScheme(XercesDOMParser::Val_Never);
        m_pParser->setLoadExternalDTD(false);
        m_pParser->setDoNamespaces(true);
        m_pParser->setCreateEntityReferenceNodes(false);
        m_pParser->setXMLEntityResolver(&gNoExternalEntities);
        m_pParser->setSecurityManager(securityManager());
        return true;
    } catch (const std::bad_alloc&) {
        recordFailure("QZCDOMParser::Initialize", kNewFailed);
    } catch (const OutOfMemoryException&) {
        recordFailure("QZCDOMParser::Initialize", kNewFailed);
    } catch (...) {
        recordFailure("QZCDOMParser::Initialize", kUnexpected);
    }
    delete m_pParser;
    m_pParser = nullptr;
    return false;
}

void QZCDOMParser::Terminate()
{
    if (!m_pParser)
        return;
    delete m_pParser;
    m_pParser = nullptr;
    m_pDocument = nullptr;
    m_pCurrentNode = nullptr;
}

namespace {

// Parses one input with a fresh error handler; returns the document or null.
DOMDocument* parseInput(XercesDOMParser& parser, const InputSource& input, const char* label)
{
    std::unique_ptr<HandlerBase> handler;
    try {
        handler = std::make_unique<HandlerBase>();
    } catch (...) {
        recordFailure(label, kNewFailed);
        return nullptr;
    }
    try {
        // The parser keeps every document it built until its pool is reset;
        // without this a parser used for many files grows without bound.
        parser.resetDocumentPool();
        parser.reset();
        parser.setErrorHandler(handler.get());
        parser.parse(input);
        DOMDocument* document = parser.getDocument();
        parser.setErrorHandler(nullptr);
        parser.reset();
        return document;
    } catch (const SAXParseException& error) {
        std::string message = std::string(kUnexpected) + "\n" + toUtf8(error.getMessage());
        char position[64];
        std::snprintf(position, sizeof position, " (行番号: %d, 列番号: %d)",
                      static_cast<int>(error.getLineNumber()), static_cast<int>(error.getColumnNumber()));
        message += position;
        recordFailure(label, message.c_str());
    } catch (...) {
        recordFailure(label, kUnexpected);
    }
    parser.setErrorHandler(nullptr);
    parser.reset();
    return nullptr;
}

}  // namespace

bool QZCDOMParser::Parse(const char* path)
{
    if (!path || !m_pParser) {
        recordFailure("QZCDOMParser::Parse", kUnexpected);
        return false;
    }
    try {
        LocalFileInputSource input(Utf16(path).get());
        return adopt(parseInput(*m_pParser, input, "QZCDOMParser::Parse"));
    } catch (...) {
        recordFailure("QZCDOMParser::Parse", kUnexpected);
        return false;
    }
}

bool QZCDOMParser::Parse(const char* text, const char* bufferId, const char* encoding)
{
    if (!text || !bufferId || !encoding || !m_pParser) {
        recordFailure("QZCDOMParser::Parse", kUnexpected);
        return false;
    }
    try {
        MemBufInputSource input(reinterpret_cast<const XMLByte*>(text), std::strlen(text), bufferId, false);
        input.setEncoding(Utf16(encoding).get());
        return adopt(parseInput(*m_pParser, input, "QZCDOMParser::Parse"));
    } catch (...) {
        recordFailure("QZCDOMParser::Parse", kUnexpected);
        return false;
    }
}

bool QZCDOMParser::adopt(DOMDocument* document)
{
    // The previous document is gone with the pool, even when this parse failed.
    m_pDocument = document;
    m_pCurrentNode = document ? document->getDocumentElement() : nullptr;
    return document != nullptr;
}

int QZCDOMParser::MoveTo(DOMNode* node)
{
    if (!node)
        return -1;
    m_pCurrentNode = node;
    return 0;
}

int QZCDOMParser::MoveRoot()
{
    return MoveTo(m_pDocument ? m_pDocument->getDocumentElement() : nullptr);
}

int QZCDOMParser::MoveParent()
{
    return MoveTo(m_pCurrentNode ? m_pCurrentNode->getParentNode() : nullptr);
}

int QZCDOMParser::MoveFirstChild()
{
    return MoveTo(m_pCurrentNode ? elementFrom(m_pCurrentNode->getFirstChild(), true) : nullptr);
}

int QZCDOMParser::MoveLastChild()
{
    return MoveTo(m_pCurrentNode ? elementFrom(m_pCurrentNode->getLastChild(), false) : nullptr);
}

int QZCDOMParser::MoveNextSibling()
{
    return MoveTo(m_pCurrentNode ? elementFrom(m_pCurrentNode->getNextSibling(), true) : nullptr);
}

int QZCDOMParser::MovePrevSibling()
{
    return MoveTo(m_pCurrentNode ? elementFrom(m_pCurrentNode->getPreviousSibling(), false) : nullptr);
}

bool QZCDOMParser::HasChild() const
{
    return m_pCurrentNode && m_pCurrentNode->hasChildNodes();
}

std::string QZCDOMParser::GetNodeName() const
{
    return m_pCurrentNode ? toUtf8(m_pCurrentNode->getNodeName()) : std::string();
}

std::string QZCDOMParser::GetNodeValue(const char* elementName) const
{
    if (!elementName || !m_pCurrentNode || m_pCurrentNode->getNodeType() != DOMNode::ELEMENT_NODE)
        return "";
    DOMNodeList* found = static_cast<DOMElement*>(m_pCurrentNode)->getElementsByTagName(Utf16(elementName).get());
    DOMNode* element = found && found->getLength() > 0 ? found->item(0) : nullptr;
    DOMNode* first = element ? element->getFirstChild() : nullptr;
    return first ? toUtf8(first->getNodeValue()) : std::string();
}

std::string QZCDOMParser::GetAttribute(const char* attributeName) const
{
    if (!attributeName || !m_pCurrentNode || m_pCurrentNode->getNodeType() != DOMNode::ELEMENT_NODE)
        return "";
    return toUtf8(static_cast<DOMElement*>(m_pCurrentNode)->getAttribute(Utf16(attributeName).get()));
}

namespace {

// Writes the document through the LS serializer with CR LF line ends.
bool serialize(DOMDocument* document, XMLFormatTarget& target, const char* label)
{
    DOMLSSerializer* serializer = nullptr;
    DOMLSOutput* output = nullptr;
    bool ok = false;
    try {
        static const XMLCh ls[] = {chLatin_L, chLatin_S, chNull};
        DOMImplementation* implementation = DOMImplementationRegistry::getDOMImplementation(ls);
        serializer = static_cast<DOMImplementationLS*>(implementation)->createLSSerializer();
        DOMConfiguration* config = serializer->getDomConfig();
        if (config->canSetParameter(XMLUni::fgDOMWRTSplitCdataSections, false))
            config->setParameter(XMLUni::fgDOMWRTSplitCdataSections, false);
        static const XMLCh crlf[] = {chCR, chLF, chNull};
        serializer->setNewLine(crlf);
        output = static_cast<DOMImplementationLS*>(implementation)->createLSOutput();
        output->setByteStream(&target);
        ok = serializer->write(document, output);
        if (!ok)
            QZCUtility::AddOtherExceptionErrorInfo();
    } catch (const XMLException& error) {
        recordFailure(label, toUtf8(error.getMessage()).c_str());
    } catch (const DOMException& error) {
        recordFailure(label, toUtf8(error.getMessage()).c_str());
    } catch (...) {
        recordFailure(label, "Xercesのシリアライズ中にエラーが発生しました。");
    }
    if (output)
        output->release();
    if (serializer)
        serializer->release();
    return ok;
}

}  // namespace

int QZCDOMParser::Save(const char* path)
{
    if (!m_pDocument || !path)
        return -1;
    try {
        LocalFileFormatTarget target(Utf16(path).get());
        return serialize(m_pDocument, target, "QZCDOMParser::Save") ? 0 : -1;
    } catch (const XMLException& error) {
        recordFailure("QZCDOMParser::Save", toUtf8(error.getMessage()).c_str());
    } catch (...) {
        recordFailure("QZCDOMParser::Save", "Xercesのシリアライズ中にエラーが発生しました。");
    }
    return -1;
}

int QZCDOMParser::SaveXml(std::string& xml)
{
    if (!m_pDocument)
        return -1;
    MemBufFormatTarget target(1023);
    if (!serialize(m_pDocument, target, "QZCDOMParser::SaveXml"))
        return -1;
    xml.assign(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
    return 0;
}
