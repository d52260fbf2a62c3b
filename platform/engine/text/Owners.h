#pragma once

#include <fontconfig/fontconfig.h>
#include <glib-object.h>
#include <pango/pango.h>

#include <memory>

namespace velmora::engine {

template <auto Function>
struct Release {
    template <class Object>
    void operator()(Object* object) const
    {
        Function(object);
    }
};

template <class Object>
using GObjectOwner = std::unique_ptr<Object, Release<g_object_unref>>;
using AttributesOwner = std::unique_ptr<PangoAttrList, Release<pango_attr_list_unref>>;
using DescriptionOwner = std::unique_ptr<PangoFontDescription, Release<pango_font_description_free>>;
using FontConfigOwner = std::unique_ptr<FcConfig, Release<FcConfigDestroy>>;
using GTextOwner = std::unique_ptr<char, Release<g_free>>;

} // namespace velmora::engine
