10 DEF FNA$(X$)=X$+"!"
20 A$="hey":PRINT FNA$(A$+"o")
