"""The tables that cross the boundary have the same slots in the same order under both ABIs for 32-bit Windows."""
import pathlib
import re
import subprocess
import sys

# Class, slots, and some that are known by their number.
TABLES = {
    "IZQVote": (30, {0: "CreateVoteWindow", 3: "SetVoteSink", 8: "OnVoteList", 17: "OnVoteContent",
                     22: "OnResultReceived", 29: "RefreshVotePanel2"}),
    "IZQVoteSink": (25, {1: "CreateVote", 9: "SetItemsOpen", 12: "PublishResult", 18: "ShowStatusText",
                         22: "IsUserOnline", 24: "RegisterDialogWindow"}),
    "JW_ByteStream": (5, {3: "CheckSize", 4: "Transfer"}),
    "JW_ID": (3, {0: "Load", 1: "Save", 2: "~JW_ID"}),
}
TABLES.update({f"Vote{kind}Record": (2, {0: "Load", 1: "Save"}) for kind in ("Topic", "Item", "Option", "Answer")})


def slots(clang, target, root):
    """Names of the operations of each table, in order."""
    here = pathlib.Path(__file__).parent
    dump = subprocess.run(
        [clang, f"--target={target}", "-std=c++20", "-ffreestanding", "-nostdinc++", f"-I{root}", "-S", "-emit-llvm",
         "-o", "/dev/null", "-Xclang", "-fdump-vtable-layouts", str(here / "slots.cpp")],
        check=True, capture_output=True, text=True)
    tables, current = {}, None
    for line in (dump.stdout + dump.stderr).splitlines():
        head = re.match(r"V(?:FT|t)able for '(?:.*' in ')?(\w+)'", line)
        if head:
            current = tables.setdefault(head[1], [])
        elif re.match(r"\s*\d+ \|", line):
            operation = re.search(r"([~\w]+)\([^()]*\)(?: const)?(?: \[.*\])*$", line)
            # A destructor has one slot or two, always the last.
            if operation and current is not None and operation[1] not in current:
                current.append(operation[1])
        else:
            current = None if "indices" in line else current
    return tables


def main():
    clang, root = sys.argv[1:]
    microsoft, gnu = (slots(clang, target, root) for target in ("i686-pc-windows-msvc", "i686-w64-mingw32"))
    for name, (count, known) in TABLES.items():
        assert microsoft[name] == gnu[name], (name, microsoft[name], gnu[name])
        assert len(gnu[name]) == count, (name, gnu[name])
        for slot, operation in known.items():
            assert gnu[name][slot] == operation, (name, slot, gnu[name][slot])


main()
