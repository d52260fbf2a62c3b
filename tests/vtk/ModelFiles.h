#pragma once

#include <string>

namespace velmora::test::model {

// Texts of files with models. The square has corners at 0 and 1 of x and y and lies at z = 0; its two triangles are
// cell 0, at the lower right, and cell 1.

/// A square as poly data, with "temperature" from 0 to 3, counter-clockwise from the corner at 0, 0.
std::string square();
/// The same without values.
std::string plainSquare();
std::string squareInStl();
std::string squareInPly();
/// Two cubes side by side along x, from 0 to 2, as an unstructured grid with "pressure" 5 and 7 in its cells.
std::string twoCubes();
/// Waves over a square from 0 to 10, of 2 × (side − 1)² triangles, with "height" at each point.
std::string waves(int side);
/// The same points without cells.
std::string cloud(int side);

/// Writes it to a file below a folder of the process's own; the whole name.
std::string write(const std::string& name, const std::string& text);

} // namespace velmora::test::model
