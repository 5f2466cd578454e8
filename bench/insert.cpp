// Inserting elements one by one into a document that is already there.
#include <optional>
#include <pugixml.hpp>
#include <random>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "bench/insert_limit.h"
#include "bench/tagged_form.h"
#include "core/filer/TaggedXml.h"
#include "core/xml/MXmlDocument.h"

namespace hx::bench {
namespace {

constexpr size_t kInsertions = 10'000;
constexpr wchar_t kName[] = L"Inserted";
constexpr wchar_t kData[] = L"1.500000000000000e+02";
constexpr wchar_t kMarkup[] = L"<Inserted>1.500000000000000e+02</Inserted>\n";

using Position = MXmlDocument::Position;

// A document of ours, parsed anew for each run.
class HxDocument {
public:
    explicit HxDocument(const Input& input) : m_input(input) {}

    // At the start of the root's children.
    void Parse() {
        m_document.emplace();
        Expect(m_document->Parse(m_input.wide) && m_document->FindElement() && m_document->EnterElement(),
               "HX", m_input.name);
    }

    void ParseAndGoToEnd() {
        Parse();
        while (m_document->FindElement()) continue;
    }

    void Add() { Expect(m_document->AddElement(kName, kData), "HX", m_input.name); }

    // Sets each position and adds there.
    void AddAt(const std::vector<Position>& positions) {
        for (const Position& position : positions) {
            m_document->SetPosition(position);
            Add();
        }
    }

    // Does the same and tells where each element came to lie.
    std::vector<size_t> OffsetsOfAdded(const std::vector<Position>& positions) {
        std::vector<size_t> offsets;
        for (const Position& position : positions) {
            m_document->SetPosition(position);
            Add();
            offsets.push_back(
                static_cast<size_t>(m_document->StartTag().data() - m_document->GetText().data()));
        }
        return offsets;
    }

    // The positions of all elements below the root.
    std::vector<Position> AllPositions() {
        std::vector<Position> positions;
        for (size_t depth = 1; depth > 0;) {
            if (m_document->FindElement()) {
                positions.push_back(m_document->GetPosition());
                m_document->EnterElement();
                ++depth;
            } else {
                m_document->LeaveElement();
                --depth;
            }
        }
        return positions;
    }

    const Position& GetPosition() const { return m_document->GetPosition(); }
    const std::wstring& GetText() const { return m_document->GetText(); }

private:
    const Input& m_input;
    std::optional<MXmlDocument> m_document;
};

// The same of pugixml.
class PugiDocument {
public:
    explicit PugiDocument(const Input& input) : m_input(input) {}

    void Parse() {
        m_document.reset();
        m_text = m_input.text;
        Expect(m_document.load_buffer_inplace(m_text.data(), m_text.size()), "pugixml", m_input.name);
        m_root = m_document.child(kRoot);
    }

    void Add() {
        m_root.append_child("Inserted").append_child(pugi::node_pcdata).set_value("1.500000000000000e+02");
    }

private:
    const Input& m_input;
    std::string m_text;
    pugi::xml_document m_document;
    pugi::xml_node m_root;
};

// `target`: how many times the other time is hoped to be enough; 0: none.
std::vector<std::string> Row(const std::string& place, const std::string& input, double ours,
                             const char* beside, double theirs, double target) {
    const double ratio = ours / theirs;
    return {place,
            input,
            FormatTime(ours),
            beside,
            FormatTime(theirs),
            FormatNumber(ratio, 2),
            target > 0 ? FormatNumber(target, 1) : "-",
            target > 0 ? (ratio <= target ? "yes" : "no") : "-"};
}

// Behind the last child of the root.
void AppendToRoot(Benchmark& benchmark, Table& table) {
    std::string smaller;
    double ours_in_smaller = 0;
    for (const Input* input : benchmark.Choose({InputKind::kRoomy, InputKind::kLargeRoomy})) {
        HxDocument hx(*input);
        HxDocument fresh(*input);
        PugiDocument pugi(*input);
        // The first insertion makes the text's buffer grow, which later ones need not; it has a row of its
        // own.
        const std::vector<double> medians =
            Compete({{"HX",
                      [&] {
                          hx.ParseAndGoToEnd();
                          hx.Add();
                      },
                      [&] {
                          for (size_t i = 0; i < kInsertions; ++i) hx.Add();
                      }},
                     {"pugixml", [&] { pugi.Parse(); },
                      [&] {
                          for (size_t i = 0; i < kInsertions; ++i) pugi.Add();
                      }},
                     {"HX first", [&] { fresh.ParseAndGoToEnd(); }, [&] { fresh.Add(); }}},
                    benchmark.HowMuch());
        const double ours = medians[0] / kInsertions;
        table.Add(Row("end", input->name, ours, "pugixml append_child", medians[1] / kInsertions, 1));
        if (!smaller.empty()) table.Add(Row("end", input->name, ours, "HX, M", ours_in_smaller, 0));
        table.Add({"end, first one", input->name, FormatTime(medians[2]), "-", "-", "-", "-", "-"});
        smaller = input->name;
        ours_in_smaller = ours;
    }
}

void InsertAt(Benchmark& benchmark, Table& table, const std::string& place,
              const std::vector<Position>& positions) {
    const Input& input = benchmark.inputs.Get(InputKind::kRoomy);
    HxDocument hx(input);
    hx.Parse();
    constexpr size_t kLength = std::size(kMarkup) - 1;
    const std::vector<Place> places = FindPlaces(input.wide, hx.OffsetsOfAdded(positions), kLength);
    const size_t end = places.back().offset;
    Expect(hx.GetText().size() == input.wide.size() + positions.size() * kLength &&
               hx.GetText().compare(end, kLength, kMarkup) == 0,
           "HX", input.name);

    std::optional<InsertLimit> limit;
    const std::vector<double> medians =
        Compete({{"HX", [&] { hx.Parse(); }, [&] { hx.AddAt(positions); }},
                 {"limit", [&] { limit.emplace(input.wide, input.elements, kMarkup, kInsertions); },
                  [&] { limit->Run(places); }}},
                benchmark.HowMuch());
    table.Add(Row(place, input.name, medians[0] / kInsertions, "limit", medians[1] / kInsertions, 1.5));
}

// A position for each insertion, chosen from all.
std::vector<Position> RandomOf(const std::vector<Position>& all) {
    std::mt19937 random(4711);
    std::vector<Position> chosen;
    for (size_t i = 0; i < kInsertions; ++i) chosen.push_back(all[random() % all.size()]);
    return chosen;
}

}  // namespace

void CompareInserting(Benchmark& benchmark) {
    Table table(
        "Insert",
        "The time of one insertion, of " + std::to_string(kInsertions) +
            " made one by one with AddElement at places that were found before. The limit is a memmove of "
            "the "
            "wide text behind the place and one pass over the 32-bit offsets behind it, in plain loops. The "
            "first insertion makes room in the text for many more: it copies the text once.",
        {"Place", "Input", "HX takes", "Beside", "It takes", "HX / it", "At most", "Met"});
    AppendToRoot(benchmark, table);

    HxDocument document(benchmark.inputs.Get(InputKind::kRoomy));
    document.Parse();
    const std::vector<Position> start(kInsertions, document.GetPosition());
    InsertAt(benchmark, table, "start", start);
    InsertAt(benchmark, table, "random", RandomOf(document.AllPositions()));
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench
