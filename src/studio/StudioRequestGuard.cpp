#include "studio/StudioRequestGuard.h"

#include <random>

#include "foundation/StringUtil.h"

namespace scriv::studio {

namespace {

// Compares in a time that does not depend on where the texts differ.
bool SameSecret(std::string_view a, std::string_view b)
{
    if (a.size() != b.size() || a.empty())
        return false;
    unsigned char difference = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        difference |= static_cast<unsigned char>(a[i] ^ b[i]);
    return difference == 0;
}

}  // namespace

StudioRequestGuard::StudioRequestGuard(int port, std::string token, std::string contentKey)
    : m_port(port)
    , m_token(std::move(token))
    , m_contentKey(std::move(contentKey))
{
}

std::string StudioRequestGuard::StudioOrigin() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
}

std::string StudioRequestGuard::ContentOrigin() const
{
    return "http://localhost:" + std::to_string(m_port);
}

std::string StudioRequestGuard::CookieName() const
{
    return "scrivant_studio_" + std::to_string(m_port);
}

std::string StudioRequestGuard::CookieHeaderValue() const
{
    return CookieName() + "=" + m_token + "; Path=/; HttpOnly; SameSite=Strict";
}

std::string StudioRequestGuard::StartUrl() const
{
    return StudioOrigin() + "/?token=" + m_token;
}

bool StudioRequestGuard::HostAllowed(std::string_view host) const
{
    std::string port = ":" + std::to_string(m_port);
    return EqualsNoCase(host, "127.0.0.1" + port) || EqualsNoCase(host, "localhost" + port);
}

bool StudioRequestGuard::OriginAllowed(std::string_view origin) const
{
    return origin == StudioOrigin();
}

bool StudioRequestGuard::TokenMatches(std::string_view candidate) const
{
    return SameSecret(candidate, m_token);
}

bool StudioRequestGuard::ContentKeyMatches(std::string_view candidate) const
{
    return SameSecret(candidate, m_contentKey);
}

bool StudioRequestGuard::TokenPresented(std::string_view cookieHeader, std::string_view tokenHeader) const
{
    return TokenMatches(tokenHeader) || TokenMatches(CookieValue(cookieHeader, CookieName()));
}

bool StudioRequestGuard::ChangesState(std::string_view method)
{
    return method != "GET" && method != "HEAD";
}

std::string StudioRequestGuard::CookieValue(std::string_view cookieHeader, std::string_view name)
{
    for (const std::string& part : Split(cookieHeader, ";")) {
        std::string pair = TrimWhitespace(part);
        std::size_t equals = pair.find('=');
        if (equals != std::string::npos && pair.substr(0, equals) == name)
            return pair.substr(equals + 1);
    }
    return {};
}

std::string StudioRequestGuard::NewToken(std::size_t bytes)
{
    static constexpr char kDigits[] = "0123456789abcdef";
    std::random_device source;
    std::string token;
    token.reserve(bytes * 2);
    for (std::size_t i = 0; i < bytes; ++i) {
        auto byte = static_cast<unsigned>(source()) & 0xFFu;
        token += kDigits[byte >> 4];
        token += kDigits[byte & 0xF];
    }
    return token;
}

}  // namespace scriv::studio
