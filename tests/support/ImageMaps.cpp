#include "support/ImageMaps.h"

#include <regex>

namespace scriv::test {

std::vector<ImageMap> ImageMapsOf(const std::string& page)
{
    std::vector<ImageMap> maps;
    std::regex mapPattern("<MAP NAME=\"([^\"]+)\">([\\s\\S]*?)</MAP>");
    std::regex areaPattern("COORDS=\"(-?\\d+),(-?\\d+),(-?\\d+),(-?\\d+)\" HREF=\"#([^\"]+)\"");
    for (std::sregex_iterator it(page.begin(), page.end(), mapPattern), end; it != end; ++it) {
        ImageMap map { (*it)[1], {} };
        std::string body = (*it)[2];
        for (std::sregex_iterator a(body.begin(), body.end(), areaPattern); a != end; ++a)
            map.areas.push_back({ (*a)[5], std::stoi((*a)[1]), std::stoi((*a)[2]), std::stoi((*a)[3]), std::stoi((*a)[4]) });
        maps.push_back(std::move(map));
    }
    return maps;
}

std::string MetaFormName(const std::string& page)
{
    std::smatch match;
    std::regex pattern("<meta name=\"SCRIVANT-FORM-NAME\" content=\"([^\"]+)\">");
    return std::regex_search(page, match, pattern) ? std::string(match[1]) : std::string();
}

}  // namespace scriv::test
