10 PRINT INSTR("ABC","");INSTR("","");INSTR(3,"ABC","");INSTR("","A")
