10 INPUT A$,B$:PRINT "[";A$;"][";B$;"]"
