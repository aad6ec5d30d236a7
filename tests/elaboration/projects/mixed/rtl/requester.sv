module requester import bus_pkg::*; #(parameter int ID = 0) (bus_if.master bus, input logic start, output phase_t phase);
  phase_t     state = IDLE, state_next;
  logic [3:0] id = ID;
  logic       accepted;
  assign accepted = bus.valid && bus.ready;
  assign bus.valid = state == DATA;
  assign bus.request = '{head: '{write: 1'b1, id: id, phase: state}, data: {bus.reply, 4'h0, id}};
  assign phase = state;
  always_comb begin
    state_next = state;
    unique case (state)
      IDLE: if (start) state_next = ADDR;
      ADDR: state_next = DATA;
      DATA: if (bus.ready) state_next = RESP;
      RESP: state_next = IDLE;
    endcase
  end
  always_ff @(posedge bus.clk) begin
    state <= state_next;
    if (accepted) id <= next_id(id);
  end
  default disable iff (start === 1'bx);
  sequence handshake;
    @(posedge bus.clk) bus.valid ##[0:4] bus.ready;
  endsequence
  property answered;
    @(posedge bus.clk) $rose(bus.valid) |-> strong(handshake);
  endproperty
  a_answered: assert property (answered) else $error("no answer; wire ghost;");
  c_busy: cover property (@(posedge bus.clk) state == DATA [*3]);
  covergroup states @(posedge bus.clk);
    coverpoint state { bins busy[] = {ADDR, DATA}; }
  endgroup
`ifdef SYNTHESIS
  logic synthesised;
  assign synthesised = accepted;
`else
  states collected = new;
  logic simulated;
`endif
`ifdef VERILATOR
  logic verilated;
`endif
endmodule
