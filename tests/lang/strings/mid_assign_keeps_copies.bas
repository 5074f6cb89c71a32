10 A$="ABC":B$=A$:MID$(A$,2,1)="-":PRINT A$;B$
