# SPDX-License-Identifier: GPL-2.0-or-later
# The record VString, made of what the module offers.

# ---- Equations, ranges and names ----

DeclareCategory("IsVStringValue", IsObject);
DeclareCategory("IsVStringEquation", IsVStringValue);
DeclareCategory("IsVStringRange", IsVStringValue);
DeclareCategory("IsVStringName", IsVStringValue);

BIND_GLOBAL("VSTRING_FAMILY", NewFamily("VStringFamily", IsVStringValue));
BIND_GLOBAL("TYPE_VSTRING_EQUATION",
            NewType(VSTRING_FAMILY, IsVStringEquation and IsComponentObjectRep));
BIND_GLOBAL("TYPE_VSTRING_RANGE",
            NewType(VSTRING_FAMILY, IsVStringRange and IsComponentObjectRep));
BIND_GLOBAL("TYPE_VSTRING_NAME",
            NewType(VSTRING_FAMILY, IsVStringName and IsComponentObjectRep));

# As it would be typed in.
InstallMethod(ViewObj, "for an equation", [IsVStringEquation], function(e)
  Print("VString.Eq("); ViewObj(e!.left); Print(", "); ViewObj(e!.right); Print(")");
end);
InstallMethod(ViewObj, "for a range of vstring", [IsVStringRange], function(r)
  Print("VString.Range("); ViewObj(r!.low); Print(", "); ViewObj(r!.high); Print(")");
end);
InstallMethod(ViewObj, "for a name of vstring", [IsVStringName], function(n)
  Print("VString.Name("); ViewObj(n!.text); Print(")");
end);
InstallMethod(PrintObj, "for a value of vstring", [IsVStringValue], ViewObj);

BIND_GLOBAL("VSTRING_PARTS", function(value)
  if IsVStringEquation(value) then return [1, value!.left, value!.right]; fi;
  if IsVStringRange(value) then return [2, value!.low, value!.high]; fi;
  return [3, value!.text];
end);
InstallMethod(\=, "for values of vstring", [IsVStringValue, IsVStringValue],
  {v, w} -> VSTRING_PARTS(v) = VSTRING_PARTS(w));
InstallMethod(\<, "for values of vstring", [IsVStringValue, IsVStringValue],
  {v, w} -> VSTRING_PARTS(v) < VSTRING_PARTS(w));

# e.left, e.right; r.low, r.high; n.text, and n.value when a command has given it one.
InstallMethod(IsBound\., "for a value of vstring", [IsVStringValue, IsPosInt], function(v, part)
  part := NameRNam(part);
  if IsVStringName(v) and part = "value" then return VSTRING_VALUE(v!.text) <> []; fi;
  return part in NamesOfComponents(v);
end);
InstallMethod(\., "for a value of vstring", [IsVStringValue, IsPosInt], function(v, part)
  part := NameRNam(part);
  if not IsBound(v.(part)) then
    ErrorNoReturn(v, " has no ", part);
  elif part = "value" then
    return VSTRING_VALUE(v!.text)[1];
  fi;
  return v!.(part);
end);

# ---- The record ----

BIND_GLOBAL("VString", VSTRING_FUNCTIONS());

# VString.repeat would be a syntax error: VString.Repeat is the same.
Perform(Intersection(RecNames(VString), ALL_KEYWORDS()), function(keyword)
  VString.(Concatenation([UppercaseChar(keyword[1])], keyword{[2..Length(keyword)]})) :=
    VString.(keyword);
end);

VString.Eq := {left, right} -> Objectify(TYPE_VSTRING_EQUATION, rec(left := left, right := right));
VString.Range := {low, high} -> Objectify(TYPE_VSTRING_RANGE, rec(low := low, high := high));
VString.Name := function(text)
  if not IsString(text) then
    ErrorNoReturn("VString.Name: argument must be a string");
  fi;
  return Objectify(TYPE_VSTRING_NAME, rec(text := Immutable(CopyToStringRep(text))));
end;

VString.Help := function(name)
  local row;
  row := First(VSTRING_ROWS(), row -> row[1] = name);
  if row = fail then
    ErrorNoReturn("VString has no command ", name);
  fi;
  Print(row[2], "\n", row[3], "\n");
  if row[7] <> "" then Print(row[7], "\n"); fi;
  Print("Gives ", row[6], ".\n");
end;

MakeImmutable(VString);
