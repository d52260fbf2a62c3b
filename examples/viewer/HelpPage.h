#pragma once

#include <QString>

namespace viewer {

/// A page of the help, by the name of its Markdown file without the suffix ("viewer"), as HTML for the toolkit's
/// text browser; empty when there is none. Headings, paragraphs, lists, tables, links, `code` and **bold** words are
/// understood, which is what the pages use. Links to what is no page of the help are left out, their words stay.
///
/// The toolkit's own reader of Markdown came with its version 5.14, and older ones are to show the same.
QString helpPage(const QString& name);

} // namespace viewer
