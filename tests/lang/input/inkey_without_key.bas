10 PRINT "[";INKEY$;"]"
