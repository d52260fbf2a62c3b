// A system without any font.

#include "engine/text/TextLine.h"
#include "exception/ExceptionBase.h"
#include "tests/platform/plot/FontSettings.h"

#include <gtest/gtest.h>

using namespace velmora::engine;

TEST(WithoutFonts, TextSaysWhatIsMissing)
{
    const test::FontSettings settings("");
    for (int attempt = 0; attempt < 2; ++attempt)
        try {
            FontFace::regular();
            ADD_FAILURE() << "a font was found";
        } catch (const velmora::ExceptionBase& error) {
            EXPECT_STREQ(error.what(),
                         "No font was found for the text of a plot. Install one, for example DejaVu Sans.");
        }
}
