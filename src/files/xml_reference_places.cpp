#include "files/xml_reference_places.h"

#include <algorithm>

namespace rulemesh {

bool XmlReferencePlaces::Holds(std::size_t offset)
{
    while (end_ <= offset && end_ < text_.size())
        TakePiece();
    return allowed_;
}

void XmlReferencePlaces::TakePiece()
{
    const std::string_view rest = text_.substr(end_);
    const auto takeTo = [&](std::string_view ending, std::size_t from) {
        const std::size_t at = rest.find(ending, from);
        end_ += at == std::string_view::npos ? rest.size() : at + ending.size();
    };
    if (inTag_ && (rest.front() == '"' || rest.front() == '\'')) {
        allowed_ = true;
        takeTo(rest.substr(0, 1), 1);
    } else if (inTag_) {
        allowed_ = false;
        const std::size_t at = std::min(rest.find_first_of("\"'>"), rest.size());
        inTag_ = at < rest.size() && rest[at] != '>';
        end_ += std::min(at + (inTag_ ? 0 : 1), rest.size());
    } else if (rest.front() != '<') {
        allowed_ = true;
        end_ += std::min(rest.find('<'), rest.size());
    } else {
        allowed_ = false;
        if (rest.starts_with("<!--")) {
            takeTo("-->", 4);
        } else if (rest.starts_with("<![CDATA[")) {
            takeTo("]]>", 9);
        } else if (rest.starts_with("<?")) {
            takeTo("?>", 2);
        } else {
            inTag_ = true;
            ++end_;
        }
    }
}

} // namespace rulemesh
