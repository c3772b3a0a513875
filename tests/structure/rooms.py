"""The rooms under src/ and what each includes of the others, read from the sources; `python3 rooms.py` draws them anew."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"
PICTURE = ROOT / "docs/layers.svg"

WIDTH, HEIGHT = 128, 38  # of a box
COLUMN, ROW = 160, 84    # from one box to the next
MARGIN = 16


def sources() -> list:
    return sorted(path for path in SRC.rglob("*") if path.suffix in (".h", ".cpp"))


def room_of(path: pathlib.Path) -> str:
    return path.relative_to(SRC).parts[0]


def rooms_included_by(path: pathlib.Path) -> set:
    return set(re.findall(r'^\s*#include\s+"(\w+)/', path.read_text(encoding="utf-8"), re.M)) - {room_of(path)}


def includes() -> dict:
    """For every room the other rooms that its files include."""
    found = {}
    for path in sources():
        found.setdefault(room_of(path), set()).update(rooms_included_by(path))
    return found


def floor(room: str, graph: dict) -> int:
    """The lowest floor is 0; a room stands above all that it includes."""
    return max((floor(other, graph) + 1 for other in graph[room]), default=0)


def reachable(room: str, graph: dict) -> set:
    return graph[room].union(*(reachable(other, graph) for other in graph[room]))


def direct(room: str, graph: dict) -> set:
    """What the room includes, without what it has already through another room."""
    return graph[room] - set().union(*(reachable(other, graph) for other in graph[room]))


def columns(graph: dict) -> dict:
    """Where a room stands from left to right: on its floor in the order of the middle of those that point to it, or, where
    nobody does, of its name, and as far from the next as the widest floor leaves."""
    top = max(floor(room, graph) for room in graph)
    floors = [sorted(room for room in graph if floor(room, graph) == number) for number in range(top, -1, -1)]
    widest = max(len(rooms) for rooms in floors)
    column = {}

    def middle_above(room):
        above = [column[other] for other in column if room in direct(other, graph)]
        return sum(above) / len(above) if above else 0

    for rooms in floors:
        for number, room in enumerate(sorted(rooms, key=middle_above)):
            column[room] = (number + 0.5) * widest / len(rooms) - 0.5
    return column


def svg(graph: dict) -> str:
    top = max(floor(room, graph) for room in graph)
    place = {room: (MARGIN + column * COLUMN, MARGIN + (top - floor(room, graph)) * ROW)
             for room, column in columns(graph).items()}
    width = max(x for x, _ in place.values()) + WIDTH + MARGIN
    height = max(y for _, y in place.values()) + HEIGHT + MARGIN
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width:g} {height:g}" width="{width:g}" height="{height:g}"'
        ' font-family="sans-serif" font-size="15">',
        '<defs><marker id="head" viewBox="0 0 8 8" refX="8" refY="4" markerWidth="8" markerHeight="8" orient="auto">'
        '<path d="M0 0 8 4 0 8z" fill="#5c3096"/></marker></defs>',
        f'<rect width="{width:g}" height="{height:g}" fill="#fff"/>',
    ]
    for room in sorted(graph):
        for other in sorted(direct(room, graph)):
            (x, y), (to_x, to_y) = place[room], place[other]
            lines.append(f'<line x1="{x + WIDTH / 2:g}" y1="{y + HEIGHT:g}" x2="{to_x + WIDTH / 2:g}" y2="{to_y:g}"'
                         ' stroke="#5c3096" marker-end="url(#head)"/>')
    for room in sorted(graph):
        x, y = place[room]
        lines.append(f'<rect x="{x:g}" y="{y:g}" width="{WIDTH}" height="{HEIGHT}" rx="8" fill="#e2e0ec" stroke="#7864a0"/>')
        lines.append(f'<text x="{x + WIDTH / 2:g}" y="{y + 24:g}" text-anchor="middle" fill="#201036">{room}/</text>')
    return "\n".join([*lines, "</svg>"]) + "\n"


if __name__ == "__main__":
    PICTURE.write_text(svg(includes()), encoding="utf-8")
