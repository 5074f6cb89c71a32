10 PRINT INSTR("あいう","い");INSTR("あA","A");KINSTR("あAい","い")
