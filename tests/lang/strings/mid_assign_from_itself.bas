10 A$="ABC":MID$(A$,1,3)=A$+"D":PRINT A$;B$
