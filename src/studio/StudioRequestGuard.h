#pragma once

#include <string>
#include <string_view>

namespace scriv::studio {

// What every request to the studio must show before it is served. Any web
// page of any site can make the browser send requests to the loopback
// address, so the studio asks for three things:
// - the access token, from the cookie that the first URL sets or from the
//   header X-Scrivant-Token (a page of another site has neither);
// - a Host header naming the loopback address and the studio's port, so that
//   a name of another site that resolves to 127.0.0.1 is refused;
// - for a request that changes anything (not GET or HEAD), an Origin header
//   that is the studio's own.
// The pages of a help (browser help, topics of a compiled help) are served to
// the second loopback name, "localhost", as another origin: there a key in the
// path stands for the token, and their scripts can neither script the studio's
// page nor pass the Origin test.
class StudioRequestGuard {
public:
    StudioRequestGuard(int port, std::string token, std::string contentKey);

    int Port() const { return m_port; }
    const std::string& Token() const { return m_token; }
    const std::string& ContentKey() const { return m_contentKey; }

    // "http://127.0.0.1:<port>": the studio's page and its API.
    std::string StudioOrigin() const;
    // "http://localhost:<port>": the pages of helps.
    std::string ContentOrigin() const;
    // The name of the cookie that carries the token; it names the port, since
    // cookies do not tell ports apart.
    std::string CookieName() const;
    // The Set-Cookie value that stores the token.
    std::string CookieHeaderValue() const;
    // The URL to open: the studio's origin with the token as query.
    std::string StartUrl() const;

    // --- the tests ---
    // The Host header names 127.0.0.1 or localhost with the studio's port.
    bool HostAllowed(std::string_view host) const;
    // The Origin of a request that changes something is the studio's origin.
    bool OriginAllowed(std::string_view origin) const;
    // The token stands in the cookie header or in the token header.
    bool TokenPresented(std::string_view cookieHeader, std::string_view tokenHeader) const;
    bool TokenMatches(std::string_view candidate) const;
    bool ContentKeyMatches(std::string_view candidate) const;
    // GET and HEAD change nothing; every other method must pass the Origin test.
    static bool ChangesState(std::string_view method);

    // The value of a cookie in a Cookie header, or "".
    static std::string CookieValue(std::string_view cookieHeader, std::string_view name);
    // A new random token of hexadecimal digits (bytes * 2 characters).
    static std::string NewToken(std::size_t bytes = 24);

private:
    int m_port;
    std::string m_token;
    std::string m_contentKey;
};

}  // namespace scriv::studio
