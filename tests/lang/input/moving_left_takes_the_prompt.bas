10 INPUT "PQ";A$:PRINT "[";A$;"]"
