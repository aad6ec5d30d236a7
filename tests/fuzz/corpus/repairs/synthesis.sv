// What synthesis leaves out, in the usual spellings.
module top (input clk);
`ifdef SYNTHESIS
  wire hardware;
`else
  wire simulated;
`endif
`ifdef VERILATOR
  wire tool;
`endif
  // synthesis translate_off
  wire off1; initial $display("// synthesis translate_on");
  // synthesis translate_on
  /* synopsys translate_off */ wire off2; /* synopsys translate_on */ wire on2;
  //pragma translate_off
  `include "nowhere.vh"
  //pragma translate_on
  // rtl_synthesis off
  wire off3; // don't
  // rtl_synthesis on
  // A word about synthesis translate_off hides nothing.
  localparam TEXT = "/* synthesis translate_off";
  wire \//synthesis ; wire [1:0] last;
  // synopsys translate_off
endmodule
module hidden; endmodule
// synopsys translate_on
endmodule

//= top:top clk hardware on2 //synthesis last[1:0]
