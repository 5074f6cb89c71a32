10 INPUT A$:PRINT "[";A$;"]"
