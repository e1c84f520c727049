// Node 18 does not hand out the web's crypto object by itself, and musicxml-io takes its identifiers from there.
import { webcrypto } from 'node:crypto';

globalThis.crypto ??= webcrypto;
