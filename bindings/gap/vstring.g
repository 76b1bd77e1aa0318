# SPDX-License-Identifier: GPL-2.0-or-later
# vstring in GAP: after this file has been read, VString.reverse("hello") calls a command, and
# VString.Help("take") tells about one. docs/gap.md says how values are handed over.
if not IsBoundGlobal("VString") then
  # Where the module and the other file lie too.
  BIND_GLOBAL("VSTRING_FOLDER",
              INPUT_FILENAME(){[1 .. Length(INPUT_FILENAME()) - Length("vstring.g")]});
  LoadDynamicModule(Concatenation(VSTRING_FOLDER, "vstring_gap.so"));
  Read(Concatenation(VSTRING_FOLDER, "record.g"));
fi;
