#pragma once

#include <string>

// Pages as the generator and older editors write them, malformed ones included.
namespace scriv::test {

// A topic as the generator writes it: upper-case tags, CR LF line ends, an
// image map with self-closed areas, marker comments, unclosed paragraphs and
// the browser-help script after </HTML>.
inline const std::string kGeneratedTopic =
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">\r\n"
    "<HTML>\r\n"
    "<HEAD>\r\n"
    "<META http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\r\n"
    "<TITLE>Orders &amp; Invoices</TITLE>\r\n"
    "<link href=\"Office10.css\" type=\"text/css\" rel=\"stylesheet\">\r\n"
    "</HEAD>\r\n"
    "<BODY onLoad=\"init()\">\r\n"
    "<H1>Orders</H1>\r\n"
    "<IMG src=\"pics/Orders.jpg\" useMap=\"#map1\" border=0>\r\n"
    "<MAP name=\"map1\">\r\n"
    "<AREA shape=\"rect\" coords=\"1,2,3,4\" href=\"#cmdOK\" />\r\n"
    "<AREA shape=\"rect\" coords=\"5,6,7,8\" HREF=\"Customers.htm\">\r\n"
    "</MAP>\r\n"
    "<!-- + CONTROLS + -->\r\n"
    "<H2><A name=\"cmdOK\"></A>OK</H2>\r\n"
    "<P>Saves the order.\r\n"
    "<P>Closes the form.\r\n"
    "<!-- - CONTROLS - -->\r\n"
    "</BODY>\r\n"
    "</HTML>\r\n"
    "\r\n"
    "<script type=\"text/javascript\" id=\"wbh\">\r\n"
    "<!--\r\n"
    "try {\r\n"
    "if (top == self) top.location.href=\"main.htm?\"+location.href;\r\n"
    "} catch(e) {}\r\n"
    "//-->\r\n"
    "</script>";

// Overlapping and unclosed inline tags, stray table text, lists without end tags.
inline const std::string kTagSoup =
    "<html><body>"
    "<div><b>bold <i>both</b> italic</i></div>"
    "<table><tr><td>1<td>2</tr>stray text</table>"
    "<ul><li>one<li>two</ul>"
    "<p>open <span>never closed"
    "</body>";

// Text in several scripts, entities and non-breaking spaces.
inline const std::string kInternational =
    "<html><head><title>Größe – 日本語</title></head>"
    "<body><p title=\"Ærø &quot;quoted&quot;\">Größe&nbsp;– 日本語 😀 &copy; &eacute; &#8364; &#x41; &lt;tag&gt;</p></body></html>";

}  // namespace scriv::test
