#include "foundation/CodePage.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <vector>

#include "foundation/StringUtil.h"

namespace scriv {

namespace {

std::string& CodePageSetting()
{
    static std::string codePage = "windows-1252";
    return codePage;
}

bool IsUtf8Name(std::string_view encoding)
{
    return EqualsNoCase(encoding, "utf-8") || EqualsNoCase(encoding, "utf8");
}

// RAII over an iconv descriptor.
class Converter {
public:
    Converter(std::string_view to, std::string_view from)
        : m_handle(iconv_open(std::string(to).c_str(), std::string(from).c_str()))
    {
    }
    ~Converter()
    {
        if (valid())
            iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool valid() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

    // Converts as much as possible; on an invalid input sequence calls onInvalid
    // with the offending byte and skips it.
    template<typename OnInvalid>
    std::string Run(std::string_view input, OnInvalid onInvalid)
    {
        std::string output;
        std::vector<char> buffer(4096);
        char* in = const_cast<char*>(input.data());
        size_t inLeft = input.size();
        while (inLeft > 0) {
            char* out = buffer.data();
            size_t outLeft = buffer.size();
            size_t result = iconv(m_handle, &in, &inLeft, &out, &outLeft);
            output.append(buffer.data(), buffer.size() - outLeft);
            if (result == static_cast<size_t>(-1)) {
                if (errno == E2BIG)
                    continue;
                // EILSEQ or EINVAL: one byte or character cannot be converted.
                std::size_t consumed = onInvalid(std::string_view(in, inLeft), output);
                in += consumed;
                inLeft -= consumed;
                iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
            }
        }
        char* out = buffer.data();
        size_t outLeft = buffer.size();
        iconv(m_handle, nullptr, nullptr, &out, &outLeft);
        output.append(buffer.data(), buffer.size() - outLeft);
        return output;
    }

private:
    iconv_t m_handle;
};

std::size_t Utf8SequenceLength(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if ((first & 0xE0) == 0xC0)
        return 2;
    if ((first & 0xF0) == 0xE0)
        return 3;
    if ((first & 0xF8) == 0xF0)
        return 4;
    return 1;
}

}  // namespace

const std::string& SystemCodePage()
{
    return CodePageSetting();
}

void SetSystemCodePage(std::string codePage)
{
    if (!codePage.empty())
        CodePageSetting() = std::move(codePage);
}

std::string CodePageOfFontCharset(int charset)
{
    switch (charset) {
    case 128: return "CP932";
    case 129: return "CP949";
    case 134: return "CP936";
    case 136: return "CP950";
    case 161: return "windows-1253";
    case 162: return "windows-1254";
    case 163: return "windows-1258";
    case 177: return "windows-1255";
    case 178: return "windows-1256";
    case 186: return "windows-1257";
    case 204: return "windows-1251";
    case 222: return "CP874";
    case 238: return "windows-1250";
    default: return {};
    }
}

std::string WindowsAnsiCodePage(std::string_view encoding)
{
    std::string name = ToLower(Trim(encoding));
    static const std::pair<const char*, const char*> kAliases[] = {
        { "shift_jis", "CP932" }, { "shift-jis", "CP932" }, { "sjis", "CP932" }, { "cp932", "CP932" }, { "ms932", "CP932" },
        { "gb2312", "CP936" }, { "gbk", "CP936" }, { "cp936", "CP936" },
        { "ks_c_5601-1987", "CP949" }, { "euc-kr", "CP949" }, { "cp949", "CP949" }, { "uhc", "CP949" },
        { "big5", "CP950" }, { "cp950", "CP950" },
        { "windows-874", "CP874" }, { "cp874", "CP874" }, { "tis-620", "CP874" },
    };
    for (const auto& [alias, codePage] : kAliases)
        if (name == alias)
            return codePage;
    for (const char* prefix : { "windows-", "cp", "win" }) {
        std::string_view rest = std::string_view(name);
        if (rest.rfind(prefix, 0) != 0)
            continue;
        rest.remove_prefix(std::char_traits<char>::length(prefix));
        if (rest.size() == 4 && rest.rfind("125", 0) == 0 && rest[3] >= '0' && rest[3] <= '8')
            return "windows-" + std::string(rest);
    }
    return {};
}

bool IsKnownEncoding(std::string_view encoding)
{
    Converter probe("UTF-8", encoding);
    return probe.valid();
}

std::string ConvertToUtf8(std::string_view bytes, std::string_view fromEncoding)
{
    if (IsUtf8Name(fromEncoding))
        return std::string(bytes);
    // An encoding that iconv does not know is read as windows-1252.
    std::string source = IsKnownEncoding(fromEncoding) ? std::string(fromEncoding) : "WINDOWS-1252";
    Converter converter("UTF-8", source);
    return converter.Run(bytes, [](std::string_view rest, std::string& output) {
        output += CodePointToUtf8(static_cast<unsigned char>(rest.front()));
        return std::size_t { 1 };
    });
}

std::string ConvertFromUtf8(std::string_view text, std::string_view toEncoding)
{
    if (IsUtf8Name(toEncoding))
        return std::string(text);
    Converter converter(std::string(toEncoding) + "//TRANSLIT", "UTF-8");
    if (!converter.valid())
        return std::string(text);
    return converter.Run(text, [](std::string_view rest, std::string& output) {
        output += '?';
        return std::min(rest.size(), Utf8SequenceLength(static_cast<unsigned char>(rest.front())));
    });
}

std::string ConvertFromUtf8ForHtml(std::string_view text, std::string_view toEncoding)
{
    if (IsUtf8Name(toEncoding))
        return std::string(text);
    Converter converter(toEncoding, "UTF-8");
    if (!converter.valid())
        return std::string(text);
    return converter.Run(text, [](std::string_view rest, std::string& output) {
        std::size_t length = std::min(rest.size(), Utf8SequenceLength(static_cast<unsigned char>(rest.front())));
        std::u32string character = Utf8ToUtf32(rest.substr(0, length));
        output += character.empty() ? std::string("?") : "&#" + std::to_string(static_cast<std::uint32_t>(character.front())) + ";";
        return length;
    });
}

}  // namespace scriv
