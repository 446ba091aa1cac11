#include "platform/File.h"
#include "platform/Text.h"
#include "settings/Xml.h"

#include <exception>
#include <expat.h>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>

namespace skyvert {

namespace {

constexpr std::size_t kBlockSize =
    std::size_t{64} * 1024; ///< even, so that no block splits a unit of UTF-16

[[noreturn]] void malformed(const char* reason) {
    throw XmlException(reason);
}

/// The production VersionNum of XML 1.0.
bool isXmlVersion(std::string_view version) {
    return version.size() > 2 && version.starts_with("1.") &&
           version.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

/// Finds unpaired surrogates in UTF-16. libexpat does not: it takes any unit after a high surrogate
/// for a low one.
class SurrogateCheck {
public:
    /// Checks the next block of a document. The first must have at least two bytes. Throws
    /// `XmlException`.
    void look(std::string_view block) {
        if (!began_) {
            began_ = true;
            const bool isBigEndian = block.starts_with("\xFE\xFF") || block.front() == '\0';
            highByte_ = isBigEndian ? 0 : 1;
            isUtf16_ = isBigEndian || block.starts_with("\xFF\xFE") || block[1] == '\0';
        }
        for (std::size_t at = highByte_; isUtf16_ && at < block.size(); at += 2) {
            const unsigned bits = static_cast<unsigned char>(block[at]) & 0xFCU;
            if ((bits == 0xDC) != lowIsDue_)
                malformed("half of a surrogate pair");
            lowIsDue_ = bits == 0xD8;
        }
    }

private:
    bool began_ = false;
    bool isUtf16_ = false;
    bool lowIsDue_ = false;
    std::size_t highByte_ = 0; ///< its index in a unit of two bytes
};

/// Drives a handler by libexpat.
class Parser {
public:
    explicit Parser(XmlHandler& handler) : handler_(handler) {
        if (!parser_)
            throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), call<&Parser::openElement, const char*, const char**>,
                              call<&Parser::closeElement, const char*>);
        XML_SetCharacterDataHandler(parser_.get(), call<&Parser::addText, const char*, int>);
        XML_SetCdataSectionHandler(parser_.get(), call<&Parser::flushText>, call<&Parser::cdata>);
        XML_SetCommentHandler(parser_.get(), call<&Parser::comment, const char*>);
        XML_SetProcessingInstructionHandler(parser_.get(),
                                            call<&Parser::instruction, const char*, const char*>);
        XML_SetXmlDeclHandler(parser_.get(),
                              call<&Parser::declaration, const char*, const char*, int>);
        XML_SetEntityDeclHandler(parser_.get(),
                                 [](void* self, const char*, int, const char*, int, const char*,
                                    const char*, const char*,
                                    const char*) { call<&Parser::refuseEntity>(self); });
        XML_SetSkippedEntityHandler(
            parser_.get(), [](void* self, const char*, int) { call<&Parser::refuseEntity>(self); });
    }

    /// Parses the next block. All but the last have `kBlockSize` bytes. Throws `XmlException`.
    void feed(std::string_view block, bool isLast) {
        if (!isLast || block.size() > 1)
            surrogates_.look(block);
        if (isFirst_)
            hasUtf8Mark_ = block.starts_with("\xEF\xBB\xBF");
        isFirst_ = false;
        const XML_Status status =
            XML_Parse(parser_.get(), block.data(), static_cast<int>(block.size()),
                      isLast ? XML_TRUE : XML_FALSE);
        if (failure_)
            std::rethrow_exception(failure_);
        if (status != XML_STATUS_OK)
            malformed(XML_ErrorString(XML_GetErrorCode(parser_.get())));
    }

private:
    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    /// A callback for libexpat that calls a member. No exception passes through libexpat: the first
    /// is kept and stops the parser, and `feed` throws it again.
    template <auto member, typename... Arguments>
    static void XMLCALL call(void* self, Arguments... arguments) {
        auto& parser = *static_cast<Parser*>(self);
        if (parser.failure_)
            return;
        try {
            (parser.*member)(arguments...);
        } catch (...) {
            parser.failure_ = std::current_exception();
            XML_StopParser(parser.parser_.get(), XML_FALSE);
        }
    }

    void openElement(const char* name, const char** attributes) {
        flushText();
        if (++depth_ > kMaxXmlDepth)
            malformed("nested too deeply");
        // Without the defaults that a document type adds.
        const int count = XML_GetSpecifiedAttributeCount(parser_.get());
        handler_.openElement(name, {attributes, static_cast<std::size_t>(count)});
    }

    void closeElement(const char* name) {
        flushText();
        --depth_;
        handler_.closeElement(name);
    }

    void addText(const char* text, int size) { text_.append(text, static_cast<std::size_t>(size)); }

    void flushText() {
        if (!text_.empty())
            handler_.text(text_);
        text_.clear();
    }

    void cdata() {
        handler_.cdata(text_);
        text_.clear();
    }

    void comment(const char* text) {
        flushText();
        handler_.comment(text);
    }

    void instruction(const char* target, const char* data) {
        flushText();
        handler_.instruction(target, data);
    }

    void declaration(const char* version, const char* encoding, int /*standalone*/) const {
        if (version != nullptr && !isXmlVersion(version))
            malformed("not a version of XML");
        if (hasUtf8Mark_ && encoding != nullptr && !equalsIgnoringCase(encoding, "UTF-8"))
            malformed("a declared encoding other than that of the byte order mark");
    }

    void refuseEntity() { malformed("an entity"); }

    XmlHandler& handler_;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_{XML_ParserCreate(nullptr)};
    SurrogateCheck surrogates_;
    bool isFirst_ = true;
    bool hasUtf8Mark_ = false;
    int depth_ = 0;
    std::string text_; ///< the part of a text or CDATA section read so far
    std::exception_ptr failure_;
};

} // namespace

void parseXml(std::string_view text, XmlHandler& handler) {
    Parser parser(handler);
    for (; text.size() > kBlockSize; text.remove_prefix(kBlockSize))
        parser.feed(text.substr(0, kBlockSize), false);
    parser.feed(text, true);
}

bool parseXmlFile(const std::filesystem::path& file, XmlHandler& handler) {
    File opened(file, File::Use::Read);
    if (!opened.regularSize())
        return false;
    std::string block(kBlockSize, '\0');
    Parser parser(handler);
    for (;;) {
        const std::optional<std::size_t> size = opened.fill(block.data(), block.size());
        if (!size)
            return false;
        parser.feed(std::string_view(block).substr(0, *size), *size < block.size());
        if (*size < block.size())
            return true;
    }
}

} // namespace skyvert
