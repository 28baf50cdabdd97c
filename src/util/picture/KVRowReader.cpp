#include "util/picture/KVRowReader.h"

using vips::VImage;

int KVRowReader::_generate(VipsRegion *region, void *, void *client, void *, gboolean *) {
    auto *reader = static_cast<KVRowReader *>(client);
    if (reader->_isReady && reader->read(region)) return 0;
    vips_error("picture", "%s", "The picture is damaged or ends too early.");
    return -1;
}

VImage KVRowReader::picture(const Layout &layout, std::unique_ptr<KVRowReader> reader) {
    VImage image(vips_image_new());
    VipsImage *raw = image.get_image();
    vips_image_init_fields(raw, layout.width, layout.height, layout.bands,
                           layout.has16Bits ? VIPS_FORMAT_USHORT : VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
                           layout.interpretation, layout.horizontalResolution, layout.verticalResolution);
    reader->_isReady = true;
    if (vips_image_pipelinev(raw, VIPS_DEMAND_STYLE_THINSTRIP, nullptr) != 0 ||
        vips_image_generate(raw, nullptr, _generate, nullptr, reader.get(), nullptr) != 0)
        throw vips::VError();
    const auto deleteReader = [](gpointer owned) { delete static_cast<KVRowReader *>(owned); };
    g_object_set_data_full(G_OBJECT(raw), "kalvora-rows", reader.release(), deleteReader);
    return image;
}
