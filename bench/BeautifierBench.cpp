// How long the beautifier takes to write a large page, with and without the
// parse that comes before it.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "htmldom/HtmlDocument.h"
#include "htmledit/CHtmlBeautifier.h"
#include "htmledit/HtmlPageFile.h"

namespace {

// One section of a topic as the generator and a hand editor leave it: a
// picture with an image map, a list of links, a table, paragraphs with
// inline markup, a comment and a script.
std::string Section(int n)
{
    std::string id = std::to_string(n);
    std::string html = "<!-- + SECTION " + id + " + -->\r\n<H2><a name=\"ctl" + id + "\">Control " + id + "</a></H2>\r\n"
        + "<MAP NAME=\"map" + id + "\">\r\n";
    for (int area = 0; area < 6; ++area)
        html += "<AREA SHAPE=\"RECT\" COORDS=\"" + std::to_string(area * 10) + ",0,90,20\" HREF=\"#ctl" + id + "_" + std::to_string(area)
            + "\" alt=\"Part " + std::to_string(area) + "\" />\r\n";
    html += "</MAP>\r\n<IMG SRC=\"images/Form" + id + ".jpg\" BORDER=0 USEMAP=\"#map" + id + "\">\r\n<UL>\r\n";
    for (int item = 0; item < 6; ++item)
        html += "<LI><a href=\"Topic" + std::to_string(item) + ".htm#ctl" + id + "\">Item &amp; part " + std::to_string(item)
            + "</a></LI>\r\n";
    html += "</UL>\r\n<TABLE border=1><TR><TH>Name</TH><TH>Meaning</TH></TR>\r\n";
    for (int row = 0; row < 4; ++row)
        html += "<TR><TD>Field&nbsp;" + std::to_string(row) + "</TD><TD>What the field <b>holds</b>, and "
            + "<i>why</i> it matters.<br>A second line.</TD></TR>\r\n";
    html += "</TABLE>\r\n<P>A paragraph of text that runs on for a while, as help text does, with a\r\n"
            "<a href=\"Other.htm\">link</a> in it and an entity &lt;like this&gt;.</P>\r\n"
            "<script type=\"text/javascript\">\r\n  var n" + id + " = 1 < 2;\r\n</script>\r\n";
    return html;
}

std::string LargePage(std::size_t size)
{
    std::string page = "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">\r\n<html>\r\n<head>\r\n"
                       "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">\r\n"
                       "<link href=\"Office10.css\" type=\"text/css\" rel=\"stylesheet\">\r\n<title>Large</title>\r\n"
                       "</head>\r\n<body>\r\n<h1>Large</h1>\r\n";
    for (int n = 0; page.size() < size; ++n)
        page += Section(n);
    return page + "</body>\r\n</html>\r\n";
}

const std::string& Page()
{
    static const std::string page = LargePage(1 << 20);
    return page;
}

void BM_BeautifyDocument(benchmark::State& state)
{
    std::unique_ptr<scriv::HtmlDocument> document = scriv::HtmlDocument::Parse(Page());
    std::size_t written = 0;
    for (auto _ : state) {
        std::string html = scriv::BeautifiedHtml(*document, "file:///help/Large.htm");
        written = html.size();
        benchmark::DoNotOptimize(html);
    }
    state.counters["input_bytes"] = static_cast<double>(Page().size());
    state.counters["output_bytes"] = static_cast<double>(written);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK(BM_BeautifyDocument)->Unit(benchmark::kMillisecond);

void BM_ParseDocument(benchmark::State& state)
{
    for (auto _ : state) {
        std::unique_ptr<scriv::HtmlDocument> document = scriv::HtmlDocument::Parse(Page());
        benchmark::DoNotOptimize(document);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK(BM_ParseDocument)->Unit(benchmark::kMillisecond);

void BM_ParseAndBeautify(benchmark::State& state)
{
    for (auto _ : state) {
        std::string html = scriv::BeautifyHtmlText(Page(), "file:///help/Large.htm");
        benchmark::DoNotOptimize(html);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK(BM_ParseAndBeautify)->Unit(benchmark::kMillisecond);

}  // namespace
