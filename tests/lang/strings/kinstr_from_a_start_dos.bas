10 PRINT KINSTR(2,"あああ","あ");KINSTR(4,"あああ","あ");INSTR(3,"あああ","あ")
