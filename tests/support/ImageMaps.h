#pragma once

#include <string>
#include <vector>

// What a generated topic says of its pictures: the image maps and their areas.
namespace scriv::test {

struct MapArea {
    std::string href;
    int left, top, right, bottom;
};

struct ImageMap {
    std::string name;
    std::vector<MapArea> areas;
};

// The image maps of a topic, in page order, each with its rectangle areas.
std::vector<ImageMap> ImageMapsOf(const std::string& page);

// The form a topic documents, from its "SCRIVANT-FORM-NAME" meta element; "" when none.
std::string MetaFormName(const std::string& page);

}  // namespace scriv::test
