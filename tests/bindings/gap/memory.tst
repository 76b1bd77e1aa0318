# Calls leave nothing behind, be they answered, refused, or left from within.
gap> pages := {} -> EvalString(SplitString(ReadLine(InputTextFile("/proc/self/statm")), " ")[2]);;
gap> SilentNonInteractiveErrors := true;;
gap> rounds := function(n)
>      local i;
>      for i in [1 .. n] do
>        VString.searchx("an", "banana"); VString.map(c -> VString.reverse(c), "abc");
>        VString.tally("banana"); VString.hash("abc", rec(method := "md5"));
>        VString.regmatch("(a+)", "banana", VString.Name("m"));
>        VString.reverse(VString.fill("x", 10000));
>        if i mod 10 = 0 then
>          CALL_WITH_CATCH(VString.take, ["abc", -1]); CALL_WITH_CATCH(VString.take, [[], (1,2)]);
>          CALL_WITH_CATCH(VString.map, [c -> 1/0, "abc"]);
>          CALL_WITH_CATCH(VString.map, [c -> VString.map(d -> Error("inside"), c), "abc"]);
>        fi;
>      od;
>      GASMAN("collect");
>    end;;
gap> rounds(20000); before := pages();; rounds(40000); grown := pages() - before;;
gap> if grown > 500 then Print(grown, " pages more\n"); fi;
gap> SilentNonInteractiveErrors := false;;
