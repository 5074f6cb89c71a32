10 A$="X":INPUT A$:PRINT "[";A$;"]"
