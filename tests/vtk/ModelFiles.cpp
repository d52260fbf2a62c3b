#include "tests/vtk/ModelFiles.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace velmora::test::model {
namespace {

std::string array(const std::string& type, const std::string& name, const std::string& values, int components = 1)
{
    return "<DataArray type=\"" + type + "\" Name=\"" + name + "\" NumberOfComponents=\"" + std::to_string(components) +
           "\" format=\"ascii\">" + values + "</DataArray>\n";
}

std::string pieceOf(const std::string& kind, const std::string& counts, const std::string& content)
{
    return "<VTKFile type=\"" + kind + "\" version=\"0.1\" byte_order=\"LittleEndian\">\n<" + kind + "><Piece " +
           counts + ">\n" + content + "</Piece></" + kind + "></VTKFile>\n";
}

std::string polyData(int points, int triangles, const std::string& values, const std::string& places,
                     const std::string& corners, const std::string& ends)
{
    return pieceOf("PolyData",
                   "NumberOfPoints=\"" + std::to_string(points) + "\" NumberOfPolys=\"" + std::to_string(triangles) +
                       "\"",
                   values + "<Points>" + array("Float32", "Points", places, 3) + "</Points>\n<Polys>" +
                       array("Int64", "connectivity", corners) + array("Int64", "offsets", ends) + "</Polys>\n");
}

std::string squareWith(const std::string& values)
{
    return polyData(4, 2, values, "0 0 0  1 0 0  1 1 0  0 1 0", "0 1 2  0 2 3", "3 6");
}

double waveAt(double x, double y)
{
    return std::sin(x) * std::cos(y);
}

struct Waves {
    std::ostringstream places;
    std::ostringstream heights;
    std::ostringstream corners;
    std::ostringstream ends;
};

void makeWaves(int side, Waves& waves)
{
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const double east = 10.0 * x / (side - 1);
            const double north = 10.0 * y / (side - 1);
            waves.places << east << ' ' << north << ' ' << waveAt(east, north) << '\n';
            waves.heights << waveAt(east, north) << '\n';
        }
    int end = 0;
    for (int y = 0; y + 1 < side; ++y)
        for (int x = 0; x + 1 < side; ++x) {
            const int corner = y * side + x;
            waves.corners << corner << ' ' << corner + 1 << ' ' << corner + side + 1 << ' ' << corner << ' '
                          << corner + side + 1 << ' ' << corner + side << '\n';
            waves.ends << end + 3 << ' ' << end + 6 << '\n';
            end += 6;
        }
}

const std::string& folder()
{
    /// Goes with the process.
    struct Folder {
        Folder()
        {
            std::string pattern = (std::filesystem::temp_directory_path() / "velmora-models-XXXXXX").string();
            path = mkdtemp(pattern.data());
        }
        ~Folder() { std::filesystem::remove_all(path); }
        std::string path;
    };
    static const Folder own;
    return own.path;
}

} // namespace

std::string square()
{
    return squareWith("<PointData Scalars=\"temperature\">" + array("Float32", "temperature", "0 1 2 3") +
                      "</PointData>\n");
}

std::string plainSquare()
{
    return squareWith("");
}

std::string squareInStl()
{
    return "solid square\n"
           "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 1 1 0\nendloop\nendfacet\n"
           "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 1 0\nvertex 0 1 0\nendloop\nendfacet\n"
           "endsolid square\n";
}

std::string squareInPly()
{
    return "ply\nformat ascii 1.0\nelement vertex 4\nproperty float x\nproperty float y\nproperty float z\n"
           "element face 2\nproperty list uchar int vertex_indices\nend_header\n"
           "0 0 0\n1 0 0\n1 1 0\n0 1 0\n3 0 1 2\n3 0 2 3\n";
}

std::string twoCubes()
{
    return pieceOf("UnstructuredGrid", "NumberOfPoints=\"12\" NumberOfCells=\"2\"",
                   "<CellData Scalars=\"pressure\">" + array("Float32", "pressure", "5 7") + "</CellData>\n<Points>" +
                       array("Float32", "Points",
                             "0 0 0  1 0 0  2 0 0  0 1 0  1 1 0  2 1 0  0 0 1  1 0 1  2 0 1  0 1 1  1 1 1  2 1 1", 3) +
                       "</Points>\n<Cells>" + array("Int64", "connectivity", "0 1 4 3 6 7 10 9  1 2 5 4 7 8 11 10") +
                       array("Int64", "offsets", "8 16") + array("UInt8", "types", "12 12") + "</Cells>\n");
}

std::string waves(int side)
{
    Waves made;
    makeWaves(side, made);
    return polyData(side * side, 2 * (side - 1) * (side - 1),
                    "<PointData Scalars=\"height\">" + array("Float32", "height", made.heights.str()) +
                        "</PointData>\n",
                    made.places.str(), made.corners.str(), made.ends.str());
}

std::string cloud(int side)
{
    Waves made;
    makeWaves(side, made);
    return "ply\nformat ascii 1.0\nelement vertex " + std::to_string(side * side) +
           "\nproperty float x\nproperty float y\nproperty float z\nelement face 0\n"
           "property list uchar int vertex_indices\nend_header\n" +
           made.places.str();
}

std::string write(const std::string& name, const std::string& text)
{
    const std::string file = folder() + "/" + name;
    std::ofstream(file, std::ios::binary) << text;
    return file;
}

} // namespace velmora::test::model
