#include "document/xml_text.h"

#include "document/xml_decode.h"
#include "document/xml_walk.h"

namespace rulemesh::xml {

namespace {

class TextCollector {
public:
    explicit TextCollector(Store& store) noexcept : store_(store) {}

    bool Open(NodeIndex node)
    {
        if (const Details* const details = store_.DetailsOf(node))
            text_ += details->written;
        return true;
    }
    void Close(NodeIndex) noexcept {}
    void Whole(NodeIndex node) { Loaded(store_.At(node).loaded); }
    void Loaded(Slice slice) { AppendContentText(text_, store_.Loaded().substr(slice.start, slice.Length())); }

    [[nodiscard]] std::string Take() noexcept { return std::move(text_); }

private:
    Store& store_;
    std::string text_;
};

} // namespace

std::string TextOf(Store& store, NodeIndex node)
{
    if (!store.At(node).isElement)
        return {};
    TextCollector collector(store);
    Walk(store, collector).From(node);
    return collector.Take();
}

std::string LoadedText(const Store& store, NodeIndex node)
{
    const Slice content = store.PartsOf(node).content;
    std::string text;
    AppendContentText(text, store.Loaded().substr(content.start, content.Length()));
    return text;
}

} // namespace rulemesh::xml
