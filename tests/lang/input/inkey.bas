10 A$=INKEY$:IF A$="" THEN 10
20 B$=INKEY$:PRINT A$;"|";B$;"|";INKEY$;"|"
