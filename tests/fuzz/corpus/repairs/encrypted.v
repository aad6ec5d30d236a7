// Parts that no tool here can open.
`pragma protect version = 1
module first (input a, output [1:0] b);
`pragma protect begin_protected
`pragma protect encrypt_agent = "any", encrypt_agent_info = "1.0"
`pragma protect data_block
mOdULE "+/*-- 7fH1kq== module endmodule
`pragma protect end_protected
endmodule
module second (input c);
  wire readable;
`protected
  5MTI!#ab"/*@#$ module
endmodule
`endprotected
`pragma protect begin
module third (input d);
`protect
  wire plain;
`endprotect
endmodule
`pragma protect end
module top (input a);
  first u1 (a, );
  second u2 (a);
  third u3 (a);
  fourth u4 (a);
endmodule
// pragma protect begin_protected
fourth
// pragma protect end_protected

//= top:top a top/u1:first a b[1:0] top/u2:second c readable top/u3:third d plain top/u4:fourth
