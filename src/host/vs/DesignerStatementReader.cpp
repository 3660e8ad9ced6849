#include <algorithm>
#include <cmath>
#include <regex>

#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/vs/WinFormDesign.h"

namespace scriv {

namespace {

struct Token {
    enum class Kind { Ident, Number, String, Punct, Newline };
    Kind kind { Kind::Punct };
    std::string text;
    bool Is(std::string_view punct) const { return kind == Kind::Punct && text == punct; }
    bool IsWord(std::string_view word) const { return kind == Kind::Ident && EqualsNoCase(text, word); }
};

bool IsIdentStart(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsIdentChar(char c)
{
    return IsIdentStart(c) || (c >= '0' && c <= '9');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Splits the code of one language into tokens; comments and preprocessor
// lines are dropped, Visual Basic's line ends kept (a continued line joined).
class Tokenizer {
public:
    Tokenizer(std::string_view code, DesignLanguage language)
        : m_code(code)
        , m_basic(language == DesignLanguage::Basic)
    {
    }

    std::vector<Token> Run()
    {
        bool lineStart = true;
        while (m_pos < m_code.size()) {
            char c = m_code[m_pos];
            if (c == '\n') {
                if (m_basic)
                    Push(Token::Kind::Newline, "\n");
                ++m_pos;
                lineStart = true;
                continue;
            }
            if (c == ' ' || c == '\t' || c == '\r' || c == '\f') {
                ++m_pos;
                continue;
            }
            if (lineStart && c == '#') {
                SkipToLineEnd();
                continue;
            }
            lineStart = false;
            if (m_basic ? c == '\'' : Starts("//")) {
                SkipToLineEnd();
            } else if (!m_basic && Starts("/*")) {
                std::size_t end = m_code.find("*/", m_pos + 2);
                m_pos = end == std::string_view::npos ? m_code.size() : end + 2;
            } else if (m_basic && c == '_' && ContinuesLine()) {
                SkipToLineEnd();
                if (m_pos < m_code.size())
                    ++m_pos;
            } else if (c == '"' || (!m_basic && c == '@' && Starts("@\""))) {
                ReadString();
            } else if (!m_basic && c == '\'') {
                ReadCharLiteral();
            } else if (IsDigit(c) || (c == '.' && m_pos + 1 < m_code.size() && IsDigit(m_code[m_pos + 1]))) {
                ReadNumber();
            } else if (m_basic && c == '&' && m_pos + 1 < m_code.size() && (m_code[m_pos + 1] == 'H' || m_code[m_pos + 1] == 'h')) {
                ReadHexNumber();
            } else if (IsIdentStart(c) || (!m_basic && c == '@' && m_pos + 1 < m_code.size() && IsIdentStart(m_code[m_pos + 1]))) {
                ReadIdentifier();
            } else if (m_basic && c == '[') {
                std::size_t end = m_code.find(']', m_pos);
                end = end == std::string_view::npos ? m_code.size() : end;
                Push(Token::Kind::Ident, std::string(m_code.substr(m_pos + 1, end - m_pos - 1)));
                m_pos = std::min(end + 1, m_code.size());
            } else {
                ReadPunct();
            }
        }
        return std::move(m_tokens);
    }

private:
    bool Starts(std::string_view text) const { return m_code.substr(m_pos, text.size()) == text; }
    void Push(Token::Kind kind, std::string text) { m_tokens.push_back({ kind, std::move(text) }); }

    void SkipToLineEnd()
    {
        std::size_t end = m_code.find('\n', m_pos);
        m_pos = end == std::string_view::npos ? m_code.size() : end;
    }

    // " _" at the end of a Visual Basic line joins the next one.
    bool ContinuesLine() const
    {
        if (m_pos > 0 && IsIdentChar(m_code[m_pos - 1]))
            return false;
        for (std::size_t i = m_pos + 1; i < m_code.size(); ++i) {
            if (m_code[i] == '\n')
                return true;
            if (m_code[i] != ' ' && m_code[i] != '\t' && m_code[i] != '\r')
                return false;
        }
        return true;
    }

    void ReadString()
    {
        bool verbatim = m_code[m_pos] == '@';
        m_pos += verbatim ? 2 : 1;
        std::string text;
        while (m_pos < m_code.size()) {
            // Only a verbatim string goes on past the end of its line.
            if (m_code[m_pos] == '\n' && !verbatim)
                break;
            char c = m_code[m_pos++];
            if (c == '"') {
                if ((m_basic || verbatim) && m_pos < m_code.size() && m_code[m_pos] == '"') {
                    text += '"';
                    ++m_pos;
                    continue;
                }
                break;
            }
            if (c == '\\' && !m_basic && !verbatim && m_pos < m_code.size()) {
                text += Escape();
                continue;
            }
            text += c;
        }
        // A Visual Basic character literal: "x"c.
        if (m_basic && m_pos < m_code.size() && (m_code[m_pos] == 'c' || m_code[m_pos] == 'C')
            && !(m_pos + 1 < m_code.size() && IsIdentChar(m_code[m_pos + 1])))
            ++m_pos;
        Push(Token::Kind::String, std::move(text));
    }

    void ReadCharLiteral()
    {
        ++m_pos;
        std::string text;
        while (m_pos < m_code.size() && m_code[m_pos] != '\'') {
            char c = m_code[m_pos++];
            text += c == '\\' && m_pos < m_code.size() ? Escape() : std::string(1, c);
        }
        ++m_pos;
        Push(Token::Kind::String, std::move(text));
    }

    std::string Escape()
    {
        char c = m_code[m_pos++];
        switch (c) {
        case 'n':
            return "\n";
        case 'r':
            return "\r";
        case 't':
            return "\t";
        case '0':
            return std::string(1, '\0');
        case 'u': {
            std::string hex(m_code.substr(m_pos, 4));
            m_pos = std::min(m_pos + 4, m_code.size());
            char32_t code = static_cast<char32_t>(std::strtoul(hex.c_str(), nullptr, 16));
            return CodePointToUtf8(code);
        }
        default:
            return std::string(1, c);
        }
    }

    void ReadNumber()
    {
        std::size_t start = m_pos;
        while (m_pos < m_code.size() && (IsDigit(m_code[m_pos]) || m_code[m_pos] == '.'))
            ++m_pos;
        if (m_pos < m_code.size() && (m_code[m_pos] == 'e' || m_code[m_pos] == 'E')) {
            std::size_t save = m_pos++;
            if (m_pos < m_code.size() && (m_code[m_pos] == '+' || m_code[m_pos] == '-'))
                ++m_pos;
            if (m_pos < m_code.size() && IsDigit(m_code[m_pos])) {
                while (m_pos < m_code.size() && IsDigit(m_code[m_pos]))
                    ++m_pos;
            } else {
                m_pos = save;
            }
        }
        std::string number(m_code.substr(start, m_pos - start));
        // Type suffixes: 8.25F, 0D, 9.75!, 12UI.
        while (m_pos < m_code.size() && (std::isalpha(static_cast<unsigned char>(m_code[m_pos])) || m_code[m_pos] == '!'
                   || m_code[m_pos] == '#' || m_code[m_pos] == '@'))
            ++m_pos;
        Push(Token::Kind::Number, number);
    }

    void ReadHexNumber()
    {
        m_pos += 2;
        std::size_t start = m_pos;
        while (m_pos < m_code.size() && std::isxdigit(static_cast<unsigned char>(m_code[m_pos])))
            ++m_pos;
        unsigned long value = std::strtoul(std::string(m_code.substr(start, m_pos - start)).c_str(), nullptr, 16);
        while (m_pos < m_code.size() && (m_code[m_pos] == '&' || std::isalpha(static_cast<unsigned char>(m_code[m_pos]))))
            ++m_pos;
        Push(Token::Kind::Number, std::to_string(value));
    }

    void ReadIdentifier()
    {
        if (m_code[m_pos] == '@')
            ++m_pos;
        std::size_t start = m_pos;
        while (m_pos < m_code.size() && IsIdentChar(m_code[m_pos]))
            ++m_pos;
        Push(Token::Kind::Ident, std::string(m_code.substr(start, m_pos - start)));
    }

    void ReadPunct()
    {
        static constexpr std::string_view twoChar[] = { "+=", "-=", "==", "!=", "=>", "::", "->", "&&", "||", "<=", ">=" };
        for (std::string_view op : twoChar) {
            if (Starts(op)) {
                Push(Token::Kind::Punct, std::string(op));
                m_pos += 2;
                return;
            }
        }
        Push(Token::Kind::Punct, std::string(1, m_code[m_pos++]));
    }

    std::string_view m_code;
    bool m_basic;
    std::size_t m_pos { 0 };
    std::vector<Token> m_tokens;
};

// The body of InitializeComponent and the class it belongs to.
struct MethodBody {
    std::string_view text;
    std::string className;
    bool found { false };
};

std::size_t MatchingBrace(std::string_view code, std::size_t open)
{
    int depth = 0;
    for (std::size_t i = open; i < code.size(); ++i) {
        char c = code[i];
        if (c == '"') {
            bool verbatim = i > 0 && code[i - 1] == '@';
            for (++i; i < code.size(); ++i) {
                if (code[i] == '\\' && !verbatim) {
                    ++i;
                } else if (code[i] == '"') {
                    if (verbatim && i + 1 < code.size() && code[i + 1] == '"')
                        ++i;
                    else
                        break;
                }
            }
        } else if (c == '\'') {
            for (++i; i < code.size() && code[i] != '\''; ++i)
                if (code[i] == '\\')
                    ++i;
        } else if (c == '/' && i + 1 < code.size() && code[i + 1] == '/') {
            i = code.find('\n', i);
            if (i == std::string_view::npos)
                return code.size();
        } else if (c == '/' && i + 1 < code.size() && code[i + 1] == '*') {
            i = code.find("*/", i + 2);
            if (i == std::string_view::npos)
                return code.size();
            ++i;
        } else if (c == '{') {
            ++depth;
        } else if (c == '}') {
            if (--depth == 0)
                return i;
        }
    }
    return code.size();
}

MethodBody FindInitializeComponent(std::string_view code, DesignLanguage language)
{
    MethodBody body;
    std::string text(code);
    std::smatch match;
    static const std::regex csharpClass(R"(\bclass\s+([A-Za-z_]\w*))");
    static const std::regex basicClass(R"(\bClass\s+([A-Za-z_]\w*))", std::regex::icase);
    if (std::regex_search(text, match, language == DesignLanguage::Basic ? basicClass : csharpClass))
        body.className = match[1].str();
    if (language == DesignLanguage::CSharp) {
        static const std::regex method(R"(\bvoid\s+InitializeComponent\s*\(\s*\))");
        if (!std::regex_search(text, match, method))
            return body;
        std::size_t open = code.find('{', static_cast<std::size_t>(match.position(0) + match.length(0)));
        if (open == std::string_view::npos)
            return body;
        std::size_t close = MatchingBrace(code, open);
        body.text = code.substr(open + 1, close - open - 1);
    } else {
        static const std::regex method(R"(\bSub\s+InitializeComponent\s*\(\s*\)[^\n]*\n)", std::regex::icase);
        static const std::regex end(R"(\n[ \t]*End[ \t]+Sub\b)", std::regex::icase);
        if (!std::regex_search(text, match, method))
            return body;
        std::size_t start = static_cast<std::size_t>(match.position(0) + match.length(0));
        std::string rest = text.substr(start);
        std::smatch endMatch;
        std::size_t length = std::regex_search(rest, endMatch, end) ? static_cast<std::size_t>(endMatch.position(0)) : rest.size();
        body.text = code.substr(start, length);
    }
    body.found = true;
    return body;
}

// Colours that designer code names.
struct NamedColour {
    const char* name;
    std::uint32_t rgb;
};
constexpr NamedColour kNamedColours[] = {
    { "Black", 0x000000 }, { "White", 0xFFFFFF }, { "Red", 0xFF0000 }, { "Green", 0x008000 }, { "Blue", 0x0000FF },
    { "Yellow", 0xFFFF00 }, { "Gray", 0x808080 }, { "Silver", 0xC0C0C0 }, { "Navy", 0x000080 }, { "Maroon", 0x800000 },
    { "DarkGray", 0xA9A9A9 }, { "LightGray", 0xD3D3D3 }, { "DimGray", 0x696969 }, { "LightYellow", 0xFFFFE0 },
    { "LightBlue", 0xADD8E6 }, { "LightGreen", 0x90EE90 }, { "DarkBlue", 0x00008B }, { "DarkRed", 0x8B0000 },
    { "DarkGreen", 0x006400 }, { "Orange", 0xFFA500 }, { "WhiteSmoke", 0xF5F5F5 }, { "Gainsboro", 0xDCDCDC },
    { "AliceBlue", 0xF0F8FF }, { "Beige", 0xF5F5DC }, { "Ivory", 0xFFFFF0 }, { "Lavender", 0xE6E6FA },
    { "Teal", 0x008080 }, { "Purple", 0x800080 }, { "Olive", 0x808000 }, { "SteelBlue", 0x4682B4 },
    { "CornflowerBlue", 0x6495ED }, { "Firebrick", 0xB22222 }, { "Transparent", 0xFFFFFF },
};

// Types whose new objects are values of properties, not components.
bool IsValueType(const std::string& shortType)
{
    for (const char* name : { "Point", "PointF", "Size", "SizeF", "Font", "Padding", "Rectangle", "Color", "Icon",
             "Bitmap", "Image", "Cursor", "DateTime", "Decimal", "CultureInfo" })
        if (shortType == name)
            return true;
    return false;
}

// Methods of the designer code that change nothing this reader keeps.
bool IsQuietMethod(const std::string& method)
{
    for (const char* name : { "SuspendLayout", "ResumeLayout", "PerformLayout", "BeginInit", "EndInit",
             "SetHelpKeyword", "SetHelpNavigator", "SetShowHelp", "SetIconAlignment", "SetIconPadding", "Clear" })
        if (method == name)
            return true;
    return false;
}

}  // namespace

// Reads the statements of one InitializeComponent into a design.
class DesignerStatementReader {
public:
    DesignerStatementReader(WinFormDesign& design, DesignLanguage language)
        : m_design(design)
        , m_basic(language == DesignLanguage::Basic)
    {
    }

    void Run(std::string_view body)
    {
        std::vector<Token> tokens = Tokenizer(body, m_basic ? DesignLanguage::Basic : DesignLanguage::CSharp).Run();
        std::vector<Token> statement;
        auto flush = [&] {
            if (!statement.empty())
                Statement(statement);
            statement.clear();
        };
        for (Token& token : tokens) {
            bool separator = m_basic ? token.kind == Token::Kind::Newline : token.Is(";");
            if (separator)
                flush();
            else
                statement.push_back(std::move(token));
        }
        flush();
    }

private:
    using Tokens = std::vector<Token>;

    static std::string Joined(const Tokens& tokens)
    {
        std::string text;
        for (const Token& token : tokens) {
            if (!text.empty() && token.kind != Token::Kind::Punct && text.back() != '.' && text.back() != '(')
                text += ' ';
            text += token.kind == Token::Kind::String ? "\"" + token.text + "\"" : token.text;
        }
        return text;
    }

    void Skip(const Tokens& statement, const char* why)
    {
        std::string text = Joined(statement);
        m_design.m_skipped.push_back(text);
        Trace(std::string("WinFormDesign: statement skipped (") + why + "): " + text);
    }

    bool IsSelf(const Token& token) const
    {
        return token.IsWord(m_basic ? "Me" : "this") || (m_basic && token.IsWord("MyBase"));
    }

    // --- statements ---

    void Statement(const Tokens& statement)
    {
        std::size_t pos = 0;
        const Token& first = statement[0];
        // ((ISupportInitialize)(this.grid)).BeginInit(): known, and nothing to keep.
        if (first.Is("("))
            return;
        if (m_basic && (first.IsWord("AddHandler") || first.IsWord("RemoveHandler")))
            return;
        if (m_basic && first.IsWord("Dim"))
            return Skip(statement, "a local variable");
        std::vector<std::string> path;
        if (IsSelf(first)) {
            if (statement.size() < 3 || !statement[1].Is("."))
                return Skip(statement, "not understood");
            pos = 2;
        }
        for (;;) {
            if (pos >= statement.size() || statement[pos].kind != Token::Kind::Ident)
                return Skip(statement, "not understood");
            path.push_back(statement[pos++].text);
            if (pos < statement.size() && statement[pos].Is(".")) {
                ++pos;
                continue;
            }
            break;
        }
        if (pos >= statement.size())
            return Skip(statement, "not understood");
        const Token& next = statement[pos];
        if (next.Is("+=") || next.Is("-="))
            return; // an event handler
        if (next.Is("=")) {
            Tokens value(statement.begin() + static_cast<std::ptrdiff_t>(pos) + 1, statement.end());
            return Assign(path, value, statement);
        }
        if (next.Is("(")) {
            std::size_t end = pos;
            std::vector<Tokens> arguments = Arguments(statement, end);
            if (end != statement.size())
                return Skip(statement, "not understood");
            return Call(path, arguments, statement);
        }
        // "Type name = value": a local variable of C#.
        if (next.kind == Token::Kind::Ident)
            return Skip(statement, "a local variable");
        Skip(statement, "not understood");
    }

    // The comma-separated arguments from the "(" at pos; pos ends behind the ")".
    std::vector<Tokens> Arguments(const Tokens& tokens, std::size_t& pos) const
    {
        std::vector<Tokens> arguments;
        Tokens current;
        int depth = 0;
        for (++pos; pos < tokens.size(); ++pos) {
            const Token& token = tokens[pos];
            if (token.Is("(") || token.Is("{") || token.Is("["))
                ++depth;
            if (token.Is(")") || token.Is("}") || token.Is("]")) {
                if (depth == 0) {
                    ++pos;
                    if (!current.empty())
                        arguments.push_back(std::move(current));
                    return arguments;
                }
                --depth;
            }
            if (depth == 0 && token.Is(",")) {
                arguments.push_back(std::move(current));
                current.clear();
                continue;
            }
            current.push_back(token);
        }
        if (!current.empty())
            arguments.push_back(std::move(current));
        return arguments;
    }

    // The component a path of properties starts at, and where its property starts.
    DesignComponent* Target(const std::vector<std::string>& path, std::size_t& property)
    {
        property = 0;
        DesignComponent* target = &m_design.Form();
        if (path.size() > 1) {
            if (DesignComponent* found = m_design.Find(path[0])) {
                target = found;
                property = 1;
                // A split container's two panels are containers of their own.
                if (target->type == "SplitContainer" && path.size() > 2 && (path[1] == "Panel1" || path[1] == "Panel2")) {
                    if (DesignComponent* panel = m_design.Find(target->name + "_" + path[1])) {
                        target = panel;
                        property = 2;
                    }
                }
            }
        }
        return target;
    }

    void Assign(const std::vector<std::string>& path, const Tokens& valueTokens, const Tokens& statement)
    {
        std::size_t pos = 0;
        DesignValue value = Expression(valueTokens, pos);
        if (pos != valueTokens.size())
            value = DesignValue();
        if (path.size() == 1 && value.kind == DesignValue::Kind::New && !IsValueType(ShortTypeName(value.text))
            && !m_design.Find(path[0])) {
            Create(path[0], value.text);
            return;
        }
        std::size_t property = 0;
        DesignComponent* target = Target(path, property);
        if (property >= path.size())
            return Skip(statement, "not understood");
        if (value.kind == DesignValue::Kind::None)
            return Skip(statement, "a value not understood");
        std::vector<std::string> name(path.begin() + static_cast<std::ptrdiff_t>(property), path.end());
        target->properties[Join(name, ".")] = std::move(value);
    }

    void Create(const std::string& name, const std::string& fullType)
    {
        DesignComponent& component = m_design.Create(name, fullType);
        if (component.type != "SplitContainer")
            return;
        for (const char* panelName : { "Panel1", "Panel2" }) {
            DesignComponent& panel = m_design.Create(name + "_" + panelName, "System.Windows.Forms.SplitterPanel");
            panel.parent = &component;
            component.controls.push_back(&panel);
        }
    }

    void Call(const std::vector<std::string>& path, const std::vector<Tokens>& arguments, const Tokens& statement)
    {
        const std::string& method = path.back();
        if (IsQuietMethod(method))
            return;
        std::vector<DesignValue> values;
        for (const Tokens& argument : arguments) {
            std::size_t pos = 0;
            values.push_back(Expression(argument, pos));
        }
        if ((method == "SetToolTip" || method == "SetHelpString") && values.size() == 2
            && values[0].kind == DesignValue::Kind::Reference && values[1].kind == DesignValue::Kind::Text) {
            if (DesignComponent* control = m_design.Find(values[0].text))
                control->properties[method == "SetToolTip" ? "ToolTipText" : "HelpString"] = values[1];
            return;
        }
        if ((method == "Add" || method == "AddRange") && path.size() >= 2 && !values.empty()) {
            std::vector<std::string> ownerPath(path.begin(), path.end() - 2);
            ownerPath.push_back("x");
            std::size_t property = 0;
            DesignComponent* owner = ownerPath.size() == 1 ? &m_design.Form() : Target(ownerPath, property);
            if (ownerPath.size() > 1 && property != ownerPath.size() - 1)
                return Skip(statement, "a collection of something unknown");
            std::vector<DesignValue> members = method == "AddRange" ? values[0].items : std::vector<DesignValue> { values[0] };
            if (AddToCollection(*owner, path[path.size() - 2], members, values))
                return;
        }
        Skip(statement, "a call not understood");
    }

    bool AddToCollection(DesignComponent& owner, const std::string& collection, const std::vector<DesignValue>& members,
        const std::vector<DesignValue>& arguments)
    {
        bool controls = collection == "Controls" || collection == "TabPages";
        bool items = collection == "Items" || collection == "DropDownItems" || collection == "MenuItems"
            || collection == "Buttons" || collection == "Columns" || collection == "Panels";
        if (!controls && !items)
            return false;
        for (const DesignValue& member : members) {
            if (member.kind == DesignValue::Kind::Text && collection == "Items") {
                owner.listItems.push_back(member.text);
                continue;
            }
            if (member.kind == DesignValue::Kind::Number && collection == "Items") {
                owner.listItems.push_back(member.text);
                continue;
            }
            DesignComponent* component = member.kind == DesignValue::Kind::Reference ? m_design.Find(member.text) : nullptr;
            if (!component)
                continue;
            if (controls) {
                if (component->parent) {
                    auto& siblings = component->parent->controls;
                    siblings.erase(std::remove(siblings.begin(), siblings.end(), component), siblings.end());
                }
                component->parent = &owner;
                owner.controls.push_back(component);
                // A table layout's cell: Controls.Add(control, column, row).
                if (arguments.size() == 3) {
                    component->properties["LayoutColumn"] = arguments[1];
                    component->properties["LayoutRow"] = arguments[2];
                }
            } else {
                component->owner = &owner;
                owner.items.push_back(component);
            }
        }
        return true;
    }

    // --- expressions ---

    static DesignValue TextValue(std::string text)
    {
        DesignValue value;
        value.kind = DesignValue::Kind::Text;
        value.text = std::move(text);
        return value;
    }

    static DesignValue NumberValue(double number)
    {
        DesignValue value;
        value.kind = DesignValue::Kind::Number;
        value.number = number;
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%g", number);
        value.text = buffer;
        return value;
    }

    DesignValue Expression(const Tokens& tokens, std::size_t& pos)
    {
        DesignValue left = Concatenation(tokens, pos);
        while (pos < tokens.size() && (tokens[pos].Is("|") || tokens[pos].IsWord("Or"))) {
            ++pos;
            DesignValue right = Concatenation(tokens, pos);
            if (left.kind == DesignValue::Kind::Enum && right.kind == DesignValue::Kind::Enum) {
                left.names.insert(left.names.end(), right.names.begin(), right.names.end());
                left.text += "|" + right.text;
            } else if (left.kind == DesignValue::Kind::Number && right.kind == DesignValue::Kind::Number) {
                left = NumberValue(static_cast<double>(static_cast<long long>(left.number) | static_cast<long long>(right.number)));
            } else {
                left = DesignValue();
            }
        }
        return left;
    }

    DesignValue Concatenation(const Tokens& tokens, std::size_t& pos)
    {
        DesignValue left = Unary(tokens, pos);
        while (pos < tokens.size() && (tokens[pos].Is("+") || (m_basic && tokens[pos].Is("&")))) {
            ++pos;
            DesignValue right = Unary(tokens, pos);
            if (left.kind == DesignValue::Kind::Number && right.kind == DesignValue::Kind::Number)
                left = NumberValue(left.number + right.number);
            else if (left.kind == DesignValue::Kind::Text && right.kind == DesignValue::Kind::Text)
                left.text += right.text;
            else
                left = DesignValue();
        }
        return left;
    }

    DesignValue Unary(const Tokens& tokens, std::size_t& pos)
    {
        if (pos < tokens.size() && tokens[pos].Is("-")) {
            ++pos;
            DesignValue value = Unary(tokens, pos);
            return value.kind == DesignValue::Kind::Number ? NumberValue(-value.number) : DesignValue();
        }
        return Primary(tokens, pos);
    }

    // A dotted name from pos; pos ends behind it.
    static std::vector<std::string> DottedName(const Tokens& tokens, std::size_t& pos)
    {
        std::vector<std::string> parts;
        while (pos < tokens.size() && tokens[pos].kind == Token::Kind::Ident) {
            parts.push_back(tokens[pos++].text);
            if (pos + 1 < tokens.size() && tokens[pos].Is(".") && tokens[pos + 1].kind == Token::Kind::Ident)
                ++pos;
            else
                break;
        }
        // Generic arguments and array marks of a type: List<int>, Control[].
        return parts;
    }

    static void SkipTypeSuffix(const Tokens& tokens, std::size_t& pos)
    {
        while (pos < tokens.size() && tokens[pos].Is("[") && pos + 1 < tokens.size() && tokens[pos + 1].Is("]"))
            pos += 2;
    }

    // After "(" at pos: a C# cast "(Type)" is a dotted name, a ")" and then a primary.
    static bool IsCast(const Tokens& tokens, std::size_t pos)
    {
        std::size_t at = pos + 1;
        std::vector<std::string> name = DottedName(tokens, at);
        SkipTypeSuffix(tokens, at);
        if (name.empty() || at >= tokens.size() || !tokens[at].Is(")") || at + 1 >= tokens.size())
            return false;
        const Token& after = tokens[at + 1];
        return after.Is("(") || after.kind == Token::Kind::Ident || after.kind == Token::Kind::Number
            || after.kind == Token::Kind::String;
    }

    DesignValue Primary(const Tokens& tokens, std::size_t& pos)
    {
        if (pos >= tokens.size())
            return {};
        const Token& token = tokens[pos];
        if (token.Is("(")) {
            if (!m_basic && IsCast(tokens, pos)) {
                ++pos;
                DottedName(tokens, pos);
                SkipTypeSuffix(tokens, pos);
                ++pos;
                return Unary(tokens, pos);
            }
            ++pos;
            DesignValue inner = Expression(tokens, pos);
            if (pos < tokens.size() && tokens[pos].Is(")"))
                ++pos;
            return inner;
        }
        if (token.kind == Token::Kind::String) {
            ++pos;
            return TextValue(token.text);
        }
        if (token.kind == Token::Kind::Number) {
            ++pos;
            return NumberValue(ParseNumber(token.text).value_or(0));
        }
        if (token.kind != Token::Kind::Ident)
            return {};
        if (token.IsWord("true") || token.IsWord("false")) {
            ++pos;
            DesignValue value;
            value.kind = DesignValue::Kind::Boolean;
            value.flag = token.IsWord("true");
            value.text = value.flag ? "True" : "False";
            return value;
        }
        if (token.IsWord("null") || token.IsWord("Nothing")) {
            ++pos;
            return {};
        }
        if (token.IsWord("new"))
            return NewExpression(tokens, pos);
        if (m_basic && (token.IsWord("CType") || token.IsWord("DirectCast") || token.IsWord("TryCast"))) {
            ++pos;
            std::vector<Tokens> arguments = Arguments(tokens, pos);
            std::size_t at = 0;
            return arguments.empty() ? DesignValue() : Expression(arguments[0], at);
        }
        if (m_basic && token.text.size() > 1 && token.text[0] == 'C' && pos + 1 < tokens.size() && tokens[pos + 1].Is("(")) {
            static const char* conversions[] = { "CInt", "CByte", "CSng", "CDbl", "CStr", "CLng", "CShort", "CBool", "CDec" };
            for (const char* conversion : conversions) {
                if (token.text == conversion) {
                    ++pos;
                    std::vector<Tokens> arguments = Arguments(tokens, pos);
                    std::size_t at = 0;
                    return arguments.size() == 1 ? Expression(arguments[0], at) : DesignValue();
                }
            }
        }
        return NameExpression(tokens, pos);
    }

    DesignValue NewExpression(const Tokens& tokens, std::size_t& pos)
    {
        ++pos;
        std::vector<std::string> name = DottedName(tokens, pos);
        std::string type = Join(name, ".");
        bool array = false;
        if (pos + 1 < tokens.size() && tokens[pos].Is("[") && tokens[pos + 1].Is("]")) {
            pos += 2;
            array = true;
        }
        std::vector<Tokens> arguments;
        if (pos < tokens.size() && tokens[pos].Is("("))
            arguments = Arguments(tokens, pos);
        // Visual Basic writes an array as New Type() {...}.
        if (pos < tokens.size() && tokens[pos].Is("{")) {
            std::vector<Tokens> members = Arguments(tokens, pos);
            DesignValue list;
            list.kind = DesignValue::Kind::List;
            list.text = type;
            for (const Tokens& member : members) {
                std::size_t at = 0;
                list.items.push_back(Expression(member, at));
            }
            return list;
        }
        if (array)
            return {};
        std::vector<DesignValue> values;
        for (const Tokens& argument : arguments) {
            std::size_t at = 0;
            values.push_back(Expression(argument, at));
        }
        std::string shortType = ShortTypeName(type);
        if (shortType == "Point" || shortType == "Size" || shortType == "SizeF" || shortType == "PointF") {
            if (values.size() != 2 || values[0].kind != DesignValue::Kind::Number || values[1].kind != DesignValue::Kind::Number)
                return {};
            DesignValue pair;
            pair.kind = DesignValue::Kind::Pair;
            pair.a = values[0].number;
            pair.b = values[1].number;
            pair.text = values[0].text + ", " + values[1].text;
            return pair;
        }
        if (shortType == "Font" && values.size() >= 2 && values[0].kind == DesignValue::Kind::Text
            && values[1].kind == DesignValue::Kind::Number) {
            DesignValue font;
            font.kind = DesignValue::Kind::Font;
            font.text = values[0].text;
            font.number = values[1].number;
            for (std::size_t i = 2; i < values.size(); ++i) {
                if (values[i].kind != DesignValue::Kind::Enum)
                    continue;
                for (const std::string& member : values[i].names) {
                    // A size in pixels is held in points, as the designer shows it.
                    if (member == "Pixel")
                        font.number *= 0.75;
                    else if (member != "Point" && member != "Regular")
                        font.names.push_back(member);
                }
            }
            return font;
        }
        if (shortType == "Font")
            return {};
        // new decimal(new int[] { low, middle, high, flags }): the scale is in the flags' third byte.
        if ((shortType == "decimal" || shortType == "Decimal") && values.size() == 1
            && values[0].kind == DesignValue::Kind::List && values[0].items.size() == 4) {
            const std::vector<DesignValue>& parts = values[0].items;
            if (parts[0].kind != DesignValue::Kind::Number || parts[3].kind != DesignValue::Kind::Number)
                return {};
            int scale = (static_cast<int>(parts[3].number) >> 16) & 0xFF;
            double sign = static_cast<int>(parts[3].number) < 0 ? -1 : 1;
            return NumberValue(sign * parts[0].number / std::pow(10.0, scale));
        }
        DesignValue created;
        created.kind = DesignValue::Kind::New;
        created.text = type;
        created.items = std::move(values);
        return created;
    }

    DesignValue NameExpression(const Tokens& tokens, std::size_t& pos)
    {
        bool self = IsSelf(tokens[pos]);
        if (self) {
            if (pos + 1 >= tokens.size() || !tokens[pos + 1].Is("."))
                return ++pos, DesignValue();
            pos += 2;
        }
        std::vector<std::string> name = DottedName(tokens, pos);
        if (name.empty())
            return {};
        if (pos < tokens.size() && tokens[pos].Is("(")) {
            std::vector<Tokens> arguments = Arguments(tokens, pos);
            return CallValue(name, arguments);
        }
        std::string joined = Join(name, ".");
        if (self || m_design.Find(joined) || (name.size() == 1 && m_design.Find(name[0]))) {
            DesignValue reference;
            reference.kind = DesignValue::Kind::Reference;
            reference.text = name.size() == 2 && m_design.Find(name[0] + "_" + name[1]) ? name[0] + "_" + name[1] : joined;
            return reference;
        }
        const std::string& last = name.back();
        if (last == "vbCrLf" || last == "vbNewLine" || last == "CrLf" || last == "NewLine")
            return TextValue("\r\n");
        if (last == "vbTab" || last == "Tab")
            return TextValue("\t");
        if (name.size() >= 2 && name[name.size() - 2] == "SystemColors") {
            DesignValue colour;
            colour.kind = DesignValue::Kind::Colour;
            colour.systemColour = true;
            colour.text = last;
            return colour;
        }
        if (name.size() >= 2 && name[name.size() - 2] == "Color") {
            for (const NamedColour& named : kNamedColours) {
                if (last == named.name) {
                    DesignValue colour;
                    colour.kind = DesignValue::Kind::Colour;
                    colour.rgb = named.rgb;
                    colour.text = last;
                    return colour;
                }
            }
            return {};
        }
        if (name.size() >= 2) {
            DesignValue member;
            member.kind = DesignValue::Kind::Enum;
            member.text = last;
            member.names = { last };
            return member;
        }
        return {};
    }

    DesignValue CallValue(const std::vector<std::string>& name, const std::vector<Tokens>& arguments)
    {
        std::vector<DesignValue> values;
        for (const Tokens& argument : arguments) {
            std::size_t at = 0;
            values.push_back(Expression(argument, at));
        }
        const std::string& method = name.back();
        if (method == "FromArgb" && (values.size() == 3 || values.size() == 4)) {
            std::size_t first = values.size() - 3;
            std::uint32_t rgb = 0;
            for (std::size_t i = first; i < values.size(); ++i) {
                if (values[i].kind != DesignValue::Kind::Number)
                    return {};
                rgb = (rgb << 8) | (static_cast<std::uint32_t>(values[i].number) & 0xFF);
            }
            DesignValue colour;
            colour.kind = DesignValue::Kind::Colour;
            colour.rgb = rgb;
            return colour;
        }
        if ((method == "ChrW" || method == "Chr") && values.size() == 1 && values[0].kind == DesignValue::Kind::Number)
            return TextValue(CodePointToUtf8(static_cast<char32_t>(values[0].number)));
        return {};
    }

    WinFormDesign& m_design;
    bool m_basic;
};

// --- the model ---

bool DesignValue::Has(std::string_view name) const
{
    return std::any_of(names.begin(), names.end(), [&](const std::string& member) { return EqualsNoCase(member, name); });
}

const DesignValue* DesignComponent::Property(std::string_view propertyName) const
{
    auto exact = properties.find(propertyName);
    if (exact != properties.end())
        return &exact->second;
    for (const auto& [key, value] : properties)
        if (EqualsNoCase(key, propertyName))
            return &value;
    return nullptr;
}

std::string DesignComponent::Text(std::string_view propertyName) const
{
    const DesignValue* value = Property(propertyName);
    return value && value->kind == DesignValue::Kind::Text ? value->text : std::string();
}

double DesignComponent::Number(std::string_view propertyName, double fallback) const
{
    const DesignValue* value = Property(propertyName);
    return value && value->kind == DesignValue::Kind::Number ? value->number : fallback;
}

bool DesignComponent::Boolean(std::string_view propertyName, bool fallback) const
{
    const DesignValue* value = Property(propertyName);
    return value && value->kind == DesignValue::Kind::Boolean ? value->flag : fallback;
}

std::string DesignComponent::EnumValue(std::string_view propertyName) const
{
    const DesignValue* value = Property(propertyName);
    return value && value->kind == DesignValue::Kind::Enum ? value->text : std::string();
}

std::string DesignComponent::ControlName() const
{
    std::string own = Text("Name");
    return own.empty() ? name : own;
}

std::string ShortTypeName(std::string_view fullType)
{
    std::size_t dot = fullType.rfind('.');
    std::string type(dot == std::string_view::npos ? fullType : fullType.substr(dot + 1));
    // "Global.System.Windows.Forms.Button" and generic marks are not part of it.
    std::size_t angle = type.find('<');
    return angle == std::string::npos ? type : type.substr(0, angle);
}

WinFormDesign::WinFormDesign()
    : m_form(std::make_unique<DesignComponent>())
{
    m_form->name = "this";
    m_form->type = "Form";
    m_form->fullType = "System.Windows.Forms.Form";
}

WinFormDesign::WinFormDesign(WinFormDesign&&) noexcept = default;
WinFormDesign& WinFormDesign::operator=(WinFormDesign&&) noexcept = default;
WinFormDesign::~WinFormDesign() = default;

DesignComponent& WinFormDesign::Create(const std::string& name, const std::string& fullType)
{
    auto component = std::make_unique<DesignComponent>();
    component->name = name;
    component->fullType = fullType;
    component->type = ShortTypeName(fullType);
    m_components.push_back(std::move(component));
    return *m_components.back();
}

DesignComponent* WinFormDesign::Find(std::string_view name) const
{
    if (EqualsNoCase(name, "this") || EqualsNoCase(name, "Me"))
        return m_form.get();
    for (const auto& component : m_components)
        if (EqualsNoCase(component->name, name))
            return component.get();
    return nullptr;
}

WinFormDesign WinFormDesign::Read(std::string_view code, DesignLanguage language, std::string formClass)
{
    WinFormDesign design;
    MethodBody body = FindInitializeComponent(code, language);
    design.m_formClass = formClass.empty() ? body.className : std::move(formClass);
    design.m_found = body.found;
    if (!body.found) {
        Trace("WinFormDesign: no InitializeComponent in the code of " + design.m_formClass);
        return design;
    }
    DesignerStatementReader(design, language).Run(body.text);
    return design;
}

WinFormDesign WinFormDesign::Load(const std::string& path)
{
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != 0)
        Raise(status::kGeneralFailure, "WinFormDesign.Load", "The form's code '" + path + "' cannot be read.");
    DesignLanguage language = EndsWithNoCase(path, ".vb") ? DesignLanguage::Basic : DesignLanguage::CSharp;
    return Read(reader.Text(), language);
}

}  // namespace scriv
