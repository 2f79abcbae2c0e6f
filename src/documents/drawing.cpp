#include "documents/drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "documents/metafile_reader.h"

namespace zelvo {

namespace {

// What a drawing in a letter may cost; a broken file could ask for millions.
constexpr std::size_t kMostPoints = 50000;
constexpr std::size_t kPointsOfText = 20;
constexpr int kCornersOfCircle = 60;

struct Pen {
  std::optional<Colour> colour = Colour{};
  double width = 0;
};
struct Brush {
  std::optional<Colour> colour = Colour{255, 255, 255};
};
struct Lettering {
  TextFont font{"Arial"};
  int height = 0;
  double angle = 0;
};
struct OtherTool {};
using Tool = std::variant<std::monostate, Pen, Brush, Lettering, OtherTool>;

struct Point {
  double x = 0, y = 0;
};
using Points = std::vector<Point>;

// What stays in force from one record to the next.
struct Easel {
  Point origin, extent{0, 0};
  Point pen;  // where it was left
  Pen line;
  Brush ground;
  Lettering letters;
  Colour textColour;
  unsigned textPlace = 0;
};

Colour colourAt(const MetafileRecord& record, std::size_t word) {
  const std::uint32_t bytes = littleEndian(record.bytes, 6 + 2 * word, 4);
  return {static_cast<std::uint8_t>(bytes), static_cast<std::uint8_t>(bytes >> 8),
          static_cast<std::uint8_t>(bytes >> 16)};
}

// Records name places by y first, x behind it.
Point pointAt(const MetafileRecord& record, std::size_t word) {
  return {double(record.word(word + 1)), double(record.word(word))};
}

Points listAt(const MetafileRecord& record, std::size_t word, std::size_t count) {
  Points points;
  for (std::size_t i = 0; i < count && word + 2 * i + 1 < record.words(); ++i)
    points.push_back({double(record.word(word + 2 * i)), double(record.word(word + 2 * i + 1))});
  return points;
}

Points arc(Point from, Point to, double begin, double end) {
  const Point centre{(from.x + to.x) / 2, (from.y + to.y) / 2};
  const Point radius{std::abs(to.x - from.x) / 2, std::abs(to.y - from.y) / 2};
  const int steps = std::max(2, static_cast<int>(std::ceil((end - begin) / (2 * std::numbers::pi) * kCornersOfCircle)));
  Points points;
  for (int i = 0; i <= steps; ++i) {
    const double angle = begin + (end - begin) * i / steps;
    points.push_back({centre.x + radius.x * std::cos(angle), centre.y - radius.y * std::sin(angle)});
  }
  return points;
}

std::string textIn(std::string_view bytes) {
  std::string text;
  for (char byte : bytes)
    if (static_cast<unsigned char>(byte) >= 0x20)
      appendCharacter(text, codePageCharacter(1252, static_cast<unsigned char>(byte)));
  return text;
}

class Drawer {
 public:
  Drawing run(std::string_view metafile) {
    MetafileReader reader(metafile);
    MetafileRecord record;
    while (cost_ < kMostPoints && reader.next(record))
      if (const auto found = table().find(record.function); found != table().end())
        found->second(*this, record);
    placeAll();
    return std::move(drawing_);
  }

 private:
  using R = MetafileRecord;

  static const std::unordered_map<std::uint32_t, void (*)(Drawer&, const R&)>& table() {
    static const std::unordered_map<std::uint32_t, void (*)(Drawer&, const R&)> records = {
        {0x020B, [](Drawer& d, const R& r) { d.easel_.origin = pointAt(r, 0); }},
        {0x020C, [](Drawer& d, const R& r) { d.easel_.extent = pointAt(r, 0); }},
        {0x02FA, [](Drawer& d, const R& r) { d.keep(penOf(r)); }},
        {0x02FC, [](Drawer& d, const R& r) { d.keep(brushOf(r)); }},
        {0x02FB, [](Drawer& d, const R& r) { d.keep(letteringOf(r)); }},
        {0x00F7, [](Drawer& d, const R&) { d.keep(OtherTool{}); }},
        {0x01F9, [](Drawer& d, const R&) { d.keep(Brush{}); }},
        {0x0142, [](Drawer& d, const R&) { d.keep(Brush{}); }},
        {0x06FF, [](Drawer& d, const R&) { d.keep(OtherTool{}); }},
        {0x012D, [](Drawer& d, const R& r) { d.select(static_cast<std::size_t>(r.word(0))); }},
        {0x01F0, [](Drawer& d, const R& r) { d.forget(static_cast<std::size_t>(r.word(0))); }},
        {0x0209, [](Drawer& d, const R& r) { d.easel_.textColour = colourAt(r, 0); }},
        {0x012E, [](Drawer& d, const R& r) { d.easel_.textPlace = static_cast<unsigned>(r.word(0)); }},
        {0x001E, [](Drawer& d, const R&) { d.save(); }},
        {0x0127, [](Drawer& d, const R&) { d.restore(); }},
        {0x0214, [](Drawer& d, const R& r) { d.easel_.pen = pointAt(r, 0); }},
        {0x0213, [](Drawer& d, const R& r) { d.lineTo(pointAt(r, 0)); }},
        {0x0325, [](Drawer& d, const R& r) { d.addLine(listAt(r, 1, static_cast<std::uint16_t>(r.word(0)))); }},
        {0x0324, [](Drawer& d, const R& r) { d.addArea({listAt(r, 1, static_cast<std::uint16_t>(r.word(0)))}); }},
        {0x0538, [](Drawer& d, const R& r) { d.addAreas(r); }},
        {0x041B, [](Drawer& d, const R& r) { d.addBox(pointAt(r, 2), pointAt(r, 0)); }},
        {0x061C, [](Drawer& d, const R& r) { d.addBox(pointAt(r, 4), pointAt(r, 2)); }},
        {0x061D, [](Drawer& d, const R& r) { d.addBlock(r); }},
        {0x0418, [](Drawer& d, const R& r) { d.addRound(pointAt(r, 2), pointAt(r, 0)); }},
        {0x0817, [](Drawer& d, const R& r) { d.addLine(d.slice(r)); }},
        {0x0830, [](Drawer& d, const R& r) { d.addArea({d.slice(r)}); }},
        {0x081A, [](Drawer& d, const R& r) { d.addPie(r); }},
        {0x0521, [](Drawer& d, const R& r) { d.addText(r); }},
        {0x0A32, [](Drawer& d, const R& r) { d.addSetText(r); }}};
    return records;
  }

  // ---- tools

  static Pen penOf(const R& record) {
    constexpr int noLine = 5;
    Pen pen{colourAt(record, 3), double(std::abs(record.word(1)))};
    if ((record.word(0) & 0xF) == noLine)
      pen.colour.reset();
    return pen;
  }

  static Brush brushOf(const R& record) {
    constexpr int hollow = 1;
    return record.word(0) == hollow ? Brush{std::nullopt} : Brush{colourAt(record, 1)};
  }

  static Lettering letteringOf(const R& record) {
    constexpr int bold = 600;
    constexpr std::size_t name = 24;
    Lettering letters;
    letters.height = record.word(0);
    letters.angle = record.word(2) / 10.0;
    letters.font.bold = record.word(4) >= bold;
    letters.font.italic = (record.word(5) & 0xFF) != 0;
    const std::string_view face = record.bytes.substr(std::min(name, record.bytes.size()));
    if (const std::string family = textIn(face.substr(0, face.find('\0'))); !family.empty())
      letters.font.family = family;
    return letters;
  }

  // A new tool takes the first place that is free.
  void keep(Tool tool) {
    constexpr std::size_t most = 1000;
    const auto free = std::find_if(tools_.begin(), tools_.end(), [](const Tool& known) { return known.index() == 0; });
    if (free != tools_.end())
      *free = std::move(tool);
    else if (tools_.size() < most)
      tools_.push_back(std::move(tool));
  }

  void select(std::size_t number) {
    if (number >= tools_.size())
      return;
    if (const auto* pen = std::get_if<Pen>(&tools_[number]))
      easel_.line = *pen;
    else if (const auto* brush = std::get_if<Brush>(&tools_[number]))
      easel_.ground = *brush;
    else if (const auto* letters = std::get_if<Lettering>(&tools_[number]))
      easel_.letters = *letters;
  }

  void forget(std::size_t number) {
    if (number < tools_.size())
      tools_[number] = {};
  }

  void save() {
    constexpr std::size_t most = 1000;
    if (saved_.size() < most)
      saved_.push_back(easel_);
  }

  void restore() {
    if (saved_.empty())
      return;
    easel_ = saved_.back();
    saved_.pop_back();
  }

  // ---- shapes

  void lineTo(Point to) {
    addLine({easel_.pen, to});
    easel_.pen = to;
  }

  void addLine(const Points& points) { addShape({points}, false); }
  void addArea(const Points& points) { addShape({points}, true); }

  void addAreas(const R& record) {
    const auto count = static_cast<std::uint16_t>(record.word(0));
    std::vector<Points> areas;
    std::size_t next = std::size_t{1} + count;
    for (std::size_t i = 1; i <= count && next < record.words(); ++i) {
      const auto points = static_cast<std::uint16_t>(record.word(i));
      areas.push_back(listAt(record, next, points));
      next += std::size_t{2} * points;
    }
    addShape(areas, true);
  }

  void addBox(Point from, Point to) { addArea({from, {to.x, from.y}, to, {from.x, to.y}}); }
  void addRound(Point from, Point to) { addArea(arc(from, to, 0, 2 * std::numbers::pi)); }

  // A block of the ground's colour without a line around it.
  void addBlock(const R& record) {
    const Pen line = std::exchange(easel_.line, Pen{std::nullopt, 0});
    const Point from = pointAt(record, 4), size = pointAt(record, 2);
    addBox(from, {from.x + size.x, from.y + size.y});
    easel_.line = line;
  }

  // The part of a round shape between two rays, against the clock.
  static Points slice(const R& record) {
    const Point end = pointAt(record, 0), begin = pointAt(record, 2), to = pointAt(record, 4),
                from = pointAt(record, 6);
    const double height = std::max(1.0, std::abs(to.y - from.y)), width = std::max(1.0, std::abs(to.x - from.x));
    const auto angleTo = [&](Point point) {
      return std::atan2(((from.y + to.y) / 2 - point.y) / height, (point.x - (from.x + to.x) / 2) / width);
    };
    const double first = angleTo(begin);
    double last = angleTo(end);
    if (last <= first)
      last += 2 * std::numbers::pi;
    return arc(from, to, first, last);
  }

  void addPie(const R& record) {
    Points points = slice(record);
    const Point to = pointAt(record, 4), from = pointAt(record, 6);
    points.push_back({(from.x + to.x) / 2, (from.y + to.y) / 2});
    addArea(points);
  }

  void addShape(const std::vector<Points>& figures, bool closed) {
    DrawnShape shape;
    shape.isClosed = closed;
    shape.line = easel_.line.colour;
    shape.lineWidth = easel_.line.width;
    if (closed)
      shape.fill = easel_.ground.colour;
    for (const Points& figure : figures)
      if (figure.size() > 1)
        shape.figures.push_back(seen(figure));
    if (!shape.figures.empty() && (shape.line || shape.fill))
      add(std::move(shape));
  }

  // ---- texts

  void addText(const R& record) {
    const auto length = static_cast<std::uint16_t>(record.word(0));
    const std::size_t behind = 1 + (std::size_t{length} + 1) / 2;
    addLetters(pointAt(record, behind), record, 1, length);
  }

  void addSetText(const R& record) {
    constexpr int inBox = 6;
    addLetters(pointAt(record, 0), record, (record.word(3) & inBox) != 0 ? 8 : 4,
               static_cast<std::uint16_t>(record.word(2)));
  }

  void addLetters(Point at, const R& record, std::size_t word, std::size_t length) {
    constexpr unsigned whereThePenIs = 1, right = 2, centre = 6, bottom = 8, baseLine = 24;
    const unsigned place = easel_.textPlace;
    DrawnText text;
    text.text = textIn(record.bytes.substr(std::min(6 + 2 * word, record.bytes.size()), length));
    if (text.text.empty())
      return;
    text.at = seen({(place & whereThePenIs) != 0 ? easel_.pen : at}).front();
    text.font = easel_.letters.font;
    text.angle = easel_.letters.angle;
    text.height = easel_.letters.height;
    text.colour = easel_.textColour;
    if ((place & centre) == centre)
      text.alignment = Alignment::Center;
    else if ((place & right) != 0)
      text.alignment = Alignment::Right;
    if ((place & baseLine) == baseLine)
      text.place = TextHeight::BaseLine;
    else if ((place & bottom) != 0)
      text.place = TextHeight::Bottom;
    cost_ += kPointsOfText;
    add(std::move(text));
  }

  // ---- the whole

  template <class Item>
  void add(Item item) {
    if (easel_.extent.x != 0 && easel_.extent.y != 0)
      origin_ = easel_.origin, extent_ = easel_.extent;
    drawing_.emplace_back(std::move(item));
  }

  // Points as they stand in the file; they are brought into the frame when it is known.
  std::vector<DrawingPoint> seen(const Points& points) {
    std::vector<DrawingPoint> result;
    for (const Point& point : points) {
      result.push_back({point.x, point.y});
      least_ = {std::min(least_.x, point.x), std::min(least_.y, point.y)};
      most_ = {std::max(most_.x, point.x), std::max(most_.y, point.y)};
    }
    cost_ += points.size();
    return result;
  }

  // A drawing that does not say how large it is, is as large as what it shows.
  void placeAll() {
    if (extent_.x == 0 || extent_.y == 0) {
      origin_ = least_;
      extent_ = {std::max(1.0, most_.x - least_.x), std::max(1.0, most_.y - least_.y)};
    }
    for (auto& item : drawing_)
      std::visit([this](auto& drawn) { place(drawn); }, item);
  }

  void place(DrawingPoint& point) const {
    point = {(point.x - origin_.x) / extent_.x, (point.y - origin_.y) / extent_.y};
  }

  void place(DrawnShape& shape) const {
    shape.lineWidth /= std::abs(extent_.x);
    for (auto& figure : shape.figures)
      for (DrawingPoint& point : figure)
        place(point);
  }

  // A height below 0 is that of the letters, one above 0 that of the line that they stand in.
  void place(DrawnText& text) const {
    constexpr double usual = 0.1, lettersOfLine = 0.87;
    place(text.at);
    const double part = std::abs(text.height / extent_.y) * (text.height > 0 ? lettersOfLine : 1);
    text.height = part > 0 ? std::min(part, 1.0) : usual;
  }

  Easel easel_;
  std::vector<Easel> saved_;
  std::vector<Tool> tools_;
  Drawing drawing_;
  Point origin_, extent_;  // of the last shape that has some
  Point least_{1e6, 1e6}, most_{-1e6, -1e6};
  std::size_t cost_ = 0;
};

}  // namespace

Drawing drawingOf(std::string_view metafile) {
  return Drawer().run(metafile);
}

}  // namespace zelvo
